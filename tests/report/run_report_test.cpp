#include "report/run_report.h"

#include "tests/report/report_scene.h"

namespace report {

using app::Operation;
using namespace std::chrono_literals;

constexpr Operation kList = Operation::kListIncludedSubfolders;
constexpr Operation kCheck = Operation::kCheckBackupState;

constexpr Expected kExpected{2'000, 4'000'000};

struct RunScene : ReportScene {
  explicit RunScene(Operation operation, bool only_problems = false, bool alone = false, bool checks = false)
      : run(window, *this, clock, {},
            {operation, only_problems, alone, "/data", "", "ever", "E:", &FreeSpace, kExpected, checks,
             checks}) {}

  static std::string FreeSpace() { return "1.00 Gb"; }

  /// A folder that is begun, and ended with these counts.
  void Folder(const std::string& path, std::int64_t files, std::int64_t new_files = 0,
              std::int64_t copied = 0, const std::string& warning = "") {
    run.FolderBegun({path, files, {}});
    if (!warning.empty()) run.WriteLine(warning);
    run.FolderEnded({path, files, {0, new_files, 0, copied}});
  }

  RunReport run;
};

TEST(RunReport, ShowsTheFoldersThatTheOperationIsAbout) {
  Story story{"report/told/"};
  for (const Operation operation : {kList, kAll, kModified, kCheck}) {
    for (const bool suppress : {false, true}) {
      RunScene scene(operation, suppress);
      scene.run.WriteLine("Before.");
      scene.Folder("/data/full", 2, 2, 2);
      scene.Folder("/data/empty", 0);
      scene.Folder("/data/wrong", 3, 0, 0, "  Warning.");
      scene.Folder("/data/rest", 4);
      scene.run.WriteLine("After.");
      scene.Note(story, "Operation " + std::to_string(static_cast<int>(operation)));
    }
  }
}

TEST(RunReport, TheHeadLineComesWhenSomethingIsToBeCopiedAndGoesOnBehindThePhraseThatIsLeftOpen) {
  RunScene scene(kModified);
  Story story{"report/told/"};
  scene.run.FolderBegun({"/data/none", 5, {}, 0});
  scene.run.FolderEnded({"/data/none", 5, {}, 0});
  scene.Note(story, "Nothing is due");
  scene.run.FolderBegun({"/data/a", 5, {}, 3});
  scene.Note(story, "Three files are");
  scene.run.FolderEnded({"/data/a", 5, {0, 3, 0, 2}});
  scene.Folder("/data/b", 5, 3, 2);
  scene.run.WriteLine("Warning.");
  scene.Folder("/data/c", 5, 3, 2);
  scene.run.ReportForBackupModifiedFiles({});
  scene.Note(story, "At the end");
}

TEST(RunReport, TheSummaryIsPrecededByWhatWentWrongInPartsThatWereCleared) {
  for (const Operation operation : {kList, kAll, kModified, kCheck}) {
    RunScene scene(operation);
    scene.run.WriteLine("  Not copied: x");
    scene.FillTo(61'441);
    scene.run.WriteLine("later");
    scene.run.WriteSummary({});
    const std::string shown = scene.window.txbText.text();
    EXPECT_LT(shown.find("Lost:\r\n  Not copied: x\r\n"), shown.rfind("files")) << shown;
  }
}

TEST(RunReport, NamesOfAnyBytesStayOnTheirLine) {
  RunScene scene(kAll);
  Story story{"report/told/"};
  RunReport run(scene.window, scene, scene.clock, {},
                {kAll, false, false, "/d\n/", "/t\r", "", "", [] { return "1"; }});
  run.Begin("Title", {"(/d\n)", "(2)"});
  run.FolderBegun({"/d\n/\xFF", 1, {}});
  run.WriteLine("Wrong: \x7F'\"");
  run.CopyBegun("/d\n/\xFF/\t");
  scene.Note(story, "Copying");
}

TEST(RunReport, LabelsAndBarFollowEvery100MillisecondsAndAtTheEnd) {
  RunScene scene(kAll);
  Story story{"report/told/"};
  scene.run.CopyBegun("/data/a");
  scene.run.CopyEnded(2'097'152, 1);
  scene.run.CopyBegun("/data/b");
  scene.Note(story, "Too early for the second");
  const std::pair<const char*, std::function<void()>> steps[] = {
      {"It comes", [&] { scene.run.Breathe(); }},
      {"Compare", [&] { scene.run.Comparing("/data/c"); }},
      {"Copy", [&] { scene.run.CopyBegun("/data/d"); }},
      {"Read back", [&] { scene.run.ReadingBack("/data/e"); }},
      {"Compared", [&] { scene.run.Compared(5, 2); }},
      {"Held in a copy", [&] { scene.run.CopyBegun("/data/f"), scene.run.ShowHeld(); }},
      {"Held after it", [&] { scene.run.CopyEnded(7, 2), scene.run.ShowHeld(); }},
      {"Save",
       [&] { scene.run.Comparing("/data/g"), scene.run.Comparing("/data/h"), scene.run.Saving(true); }},
      {"Saving", [&] { scene.run.Breathe(); }},
      {"On",
       [&] {
         scene.clock.Advance(10s), scene.run.Progress({0.25, 9});
       }},
      {"Copied", [&] { scene.run.CopyEnded(9, 1'000); }},
      {"Saved", [&] { scene.run.Saving(false); }}};
  for (const auto& [step, act] : steps) {
    scene.clock.Advance(100ms);
    act();
    scene.Note(story, step);
  }
  scene.run.CopyEnded(12, 1'002);
  scene.run.Progress({0.5, 0}), scene.run.Breathe();
  scene.run.WriteSummary({});
  scene.Note(story, "The sums are the last ones at once");
}

TEST(RunReport, AsksTellsAndHoldsByWindowsAndWritesWhenNobodyIsThere) {
  Story story{"report/told/"};
  for (const bool alone : {false, true}) {
    RunScene scene(kAll, false, alone);
    scene.front_end.dialogs().yes_no = {true};
    EXPECT_TRUE(scene.run.AskWhetherToGoOn({"a\r\nb", "Go on"}));
    scene.run.Tell("c\r\nd");
    scene.stop = true;
    EXPECT_TRUE(scene.run.AskWhetherToGoOn({"late", ""}));
    scene.run.Tell("late");
    scene.Note(story, alone ? "Nobody is there" : "Somebody is");
  }
  RunScene held(kAll);
  held.Click(held.window.cmdCancelClose);
  held.run.Pause();
  EXPECT_TRUE(held.run.StopRequested()) << "a pause holds until the user cancels";
  RunScene unattended(kAll, false, true);
  unattended.run.Pause();
  EXPECT_FALSE(unattended.window.Paused) << "but never without a user";
}

TEST(Summary,
     TellsWhatTheOperationIsAboutLeavesOutWhatIsNothingAndNeverSaysThatAllIsBackedUpWhenNotAllWasSeen) {
  Story story{"report/told/"};
  engine::Totals left_out;
  left_out.left_out_folders = 1;
  const std::pair<const char*, engine::Totals> runs[] = {
      {"much", {{1'000, 600, 403, 1'000, 0, 200, 3, 0}, 2, 2, 0, 1'000, 1'000, 2}},
      {"a folder that was not read", {{}, 0, 0, 1, 0, 0, 1}},
      {"two modified files", {{2, 1, 1, 2}}},
      {"one file and a warning", {{1, 0, 1, 1}, 1, 1, 0, 1, 1, 1}},
      {"a folder that was left out", left_out},
      {"nothing", {}},
      {"nothing, and cancelled", {}}};
  for (const auto& [run, totals] : runs) {
    for (const Operation operation : {kList, kAll, kModified, kCheck}) {
      RunScene scene(operation, false, false, &totals == &runs[0].second);
      scene.stop = &totals == &std::end(runs)[-1].second;
      scene.run.WriteSummary(totals);
      story.told += std::string("== ") + run + "\n";
      for (const char c : scene.lines) story.told += c == '|' ? '\n' : c;
    }
  }
}

}  // namespace report
