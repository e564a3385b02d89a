#include "report/run_report.h"

#include "tests/report/report_scene.h"

namespace report {

using app::Operation;
using namespace std::chrono_literals;

constexpr Operation kList = Operation::kListIncludedSubfolders;
constexpr Operation kCheck = Operation::kCheckBackupState;

struct RunScene : ReportScene {
  explicit RunScene(Operation operation, bool only_problems = false, bool alone = false)
      : run(window, *this, clock, {},
            {operation, only_problems, alone, "/data", "", "ever", "E:", [] { return "1.00 Gb"; }}) {}

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
  const std::string full = "    2 files in {source folder}/full";
  const std::string wrong = "    3 files in {source folder}/wrong|  Warning.|";
  const std::string rest = "    4 files in {source folder}/rest";
  const std::pair<Operation, std::string> cases[] = {
      {kList, full + "|    0 files in {source folder}/empty|" + wrong + rest + "|"},
      {kAll, full + "  Both copied.|" + wrong + "  None copied.|" + rest + "  None copied.|"},
      {kModified, full + "  Neither previously backed up.  Both copied.|" + wrong},
      {kCheck, full + "  Neither are backed up.|" + wrong}};
  for (const auto& [operation, expected] : cases) {
    for (const bool suppress : {false, true}) {
      RunScene scene(operation, suppress);
      scene.Folder("/data/full", 2, 2, 2);
      scene.Folder("/data/empty", 0);
      scene.Folder("/data/wrong", 3, 0, 0, "  Warning.");
      scene.Folder("/data/rest", 4);
      EXPECT_EQ(scene.lines, suppress ? "  Warning.|" : expected);
    }
  }
}

TEST(RunReport, TheHeadLineComesWhenSomethingIsToBeCopiedAndGoesOnBehindThePhraseThatIsLeftOpen) {
  RunScene scene(kModified);
  const std::string due = "  0 modified files and 3 files not previously backed up.  2 files copied.";
  const std::string head = "    5 files in {source folder}/";
  scene.run.FolderBegun({"/data/none", 5, {}, 0});
  EXPECT_EQ(scene.window.txbText.text(), "");
  scene.run.FolderEnded({"/data/none", 5, {}, 0});
  scene.run.FolderBegun({"/data/a", 5, {}, 3});
  EXPECT_EQ(scene.window.txbText.text(), head + "a");
  scene.run.FolderEnded({"/data/a", 5, {0, 3, 0, 2}});
  scene.Folder("/data/b", 5, 3, 2);
  scene.run.WriteLine("Warning.");
  scene.Folder("/data/c", 5, 3, 2);
  scene.run.ReportForBackupModifiedFiles({});
  const std::string lines =
      head + "a" + due + head + "b" + due + "|Warning.|" + head + "c" + due + "|For files new";
  EXPECT_EQ(scene.lines.substr(0, lines.size()), lines);
}

TEST(RunReport, TheSummaryIsPrecededByWhatWentWrongInPartsThatWereCleared) {
  RunScene scene(kAll);
  scene.Folder("/data/wrong", 1, 0, 0, "  Not copied: x");
  scene.FillTo(61'441);
  scene.Folder("/data/later", 1, 1, 1);
  scene.run.WriteSummary({});
  const std::string shown = scene.window.txbText.text();
  const std::size_t lost = shown.find("Lost:\r\n  Not copied: x\r\n");
  EXPECT_LT(lost, shown.find("Number of files copied: 0")) << shown;
}

TEST(RunReport, NamesOfAnyBytesStayOnTheirLine) {
  RunScene scene(kAll);
  RunReport run(scene.window, scene, scene.clock, {}, {kAll, false, false, "/d\n/", "/t\r", "", "", {}});
  run.Begin("Title", {"(/d\n)"});
  run.FolderBegun({"/d\n/\xFF", 1, {}});
  run.WriteLine("Wrong: \x7F'\"");
  run.CopyBegun("/d\n/\xFF/\t");
  EXPECT_EQ(scene.lines, "(/d\\n)|    1 file  in {source folder}/\xEF\xBF\xBD|Wrong: \\x7f'\"|");
  EXPECT_EQ(scene.window.lblSourceDirpath.text() + scene.window.lblTargetDirpath.text(), "/d\\n//t\\x0d");
  EXPECT_EQ(scene.window.lblFileName.text(), "/d\\n/\xEF\xBF\xBD/\\t");
}

TEST(RunReport, LabelsAndBarFollowEvery100MillisecondsAndAtTheEnd) {
  RunScene scene(kAll);
  const frmReport& window = scene.window;
  scene.run.CopyBegun("/data/a");
  scene.run.CopyEnded(2'097'152, 1);
  scene.run.CopyBegun("/data/b");
  EXPECT_EQ(window.lblFreeSpace.text(), "Free on Drive E: 1.00 Gb");
  EXPECT_EQ(window.lblFileName.text() + window.lblBytesCopied.text(), "/data/a");
  scene.clock.Advance(100ms);
  scene.run.Breathe();
  EXPECT_EQ(window.lblFileName.text(), "/data/b");
  EXPECT_EQ(window.lblBytesCopied.text(), "Copied: 2,097,152 bytes (2.00 Mb) in 1 file");
  scene.run.CopyEnded(12, 1'002);
  scene.run.Progress({0.5, 0});
  scene.run.WriteSummary({});
  EXPECT_EQ(window.lblBytesCopied.text(), "Copied: 12 bytes in 1,002 files");
  for (const bool compares : {true, false}) {
    scene.clock.Advance(100ms);
    compares ? scene.run.Comparing("/data/c") : scene.run.CopyBegun("/data/d");
    EXPECT_EQ(window.Label1.text() + window.lblFileName.text(),
              compares ? "Now being compared: /data/c" : "File now being copied: /data/d");
  }
  EXPECT_TRUE(window.task_progress() == 0.5 && window.barProgress.fraction() == 0.5);
  EXPECT_EQ(window.text() + " " + window.lblState.text(), "50 % - Report 50 %");
  scene.clock.Advance(100ms);
  scene.run.ReadingBack("/data/e");
  EXPECT_EQ(window.Label1.text() + window.lblFileName.text(), "Now being read back: /data/e");
  scene.clock.Advance(100ms);
  scene.run.Compared(5, 2);
  EXPECT_EQ(window.lblBytesCopied.text(), "Copied: 12 bytes in 1,002 files.  Compared: 5 bytes in 2 files");
  scene.run.Saving(true);
  EXPECT_TRUE(window.lblFileName.visible() && !window.Label1.visible());
  scene.run.Saving(false);
  EXPECT_FALSE(window.lblFileName.visible());
}

TEST(RunReport, AsksAndTellsByDialogsAndWritesWhenNobodyIsThere) {
  for (const bool alone : {false, true}) {
    RunScene scene(kAll, false, alone);
    auto& asked = scene.front_end.dialogs().asked;
    scene.front_end.dialogs().yes_no = {true};
    EXPECT_TRUE(scene.run.AskWhetherToGoOn({"a\r\nb", "Go on"}));
    scene.run.Tell("c\r\nd");
    scene.stop = true;
    EXPECT_TRUE(scene.run.AskWhetherToGoOn({"late", ""}));
    scene.run.Tell("late");
    EXPECT_EQ(asked.size(), alone ? 0U : 2U);
    EXPECT_EQ(asked.empty() ? "" : asked[0].text + "|" + asked[1].text,
              alone ? "" : "a\r\nb\r\n\r\nGo on|c\r\nd");
    EXPECT_EQ(scene.lines, alone ? "      a b|c d|      late|late|" : "");
  }
}

TEST(RunReport, APauseHoldsUntilTheUserCancelsButNeverWithoutAUser) {
  RunScene scene(kAll);
  scene.Click(scene.window.cmdCancelClose);
  scene.run.Pause();
  EXPECT_TRUE(scene.run.StopRequested());
  RunScene unattended(kAll, false, true);
  unattended.run.Pause();
  EXPECT_FALSE(unattended.window.Paused);
}

static std::string Summary(Operation operation, const engine::Totals& totals, bool cancelled = false) {
  RunScene scene(operation);
  scene.stop = cancelled;
  scene.run.WriteSummary(totals);
  return scene.lines;
}

const engine::Totals kMuch{{1'000, 600, 403, 1'000, 0, 200, 3, 0}, 2, 2, 0, 1'000, 1'000, 2};
const engine::Totals kUnread{{}, 0, 0, 1, 0, 0, 1};

TEST(Summary, TellsWhatTheOperationIsAboutAndLeavesOutWhatIsNothing) {
  const std::string since = "For files new or modified ever:|Number of modified files: ";
  const std::string errors = "Number of errors when attempting to copy a file: 3|";
  EXPECT_EQ(Summary(kList, kMuch),
            "Number of folders: 2|Number of files: 800|Sum of file sizes: 1,000 bytes|");
  EXPECT_EQ(Summary(kAll, {}), "|Number of non-empty folders accessed: 0|Number of files copied: 0|");
  EXPECT_EQ(Summary(kAll, kMuch), "|Number of non-empty folders accessed: 2|Number of files copied: 1,000|" +
                                      errors + "Sum of sizes of files copied: 1,000 bytes|");
  EXPECT_EQ(Summary(kModified, kMuch),
            since +
                "403|Number of files not previously backed up: 600|"
                "Number of files modified or not previously backed up: 1,003|Number of files copied: 1,000|" +
                errors + "Sum of sizes of files copied: 1,000 bytes||This report contains 2 warnngs.|");
  EXPECT_NE(Summary(kModified, {{2, 1, 1, 2}}).find("modified or not previously backed up: 2|"),
            std::string::npos);
  EXPECT_EQ(Summary(kModified, kUnread), since +
                                             "0|Number of files not previously backed up: 0|"
                                             "Number of files copied: 0|Sum of sizes of files copied: 0 "
                                             "bytes||This report contains one warning.|");
  EXPECT_TRUE(
      Summary(kModified, {{1, 0, 0, 1}, 1, 1, 0, 1, 1, 1}).ends_with("||This report contains one warning.|"));
  EXPECT_EQ(Summary(kCheck, kMuch), since +
                                        "403|Number of files not backed up: 600|"
                                        "Number of files modified or not backed up: 1,003|");
}

TEST(Summary, NeverSaysThatAllIsBackedUpWhenNotAllWasSeen) {
  const std::string nothing =
      "For files new or modified ever:|Number of modified files: 0|"
      "Number of files not backed up: 0|Number of files modified or not backed up: 0|";
  EXPECT_EQ(Summary(kCheck, kUnread), nothing);
  EXPECT_EQ(Summary(kCheck, {}, true), nothing);
  engine::Totals left_out;
  left_out.left_out_folders = 1;
  EXPECT_EQ(Summary(kCheck, left_out), nothing);
  EXPECT_EQ(Summary(kCheck, {}), "For files new or modified ever:|All files backed up.|");
}

}  // namespace report
