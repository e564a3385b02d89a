#include "report/run_report.h"

#include <gtest/gtest.h>

#include "tests/report/report_scene.h"

namespace report {
namespace {

using app::Operation;
using std::chrono_literals::operator""ms;

constexpr Operation kList = Operation::kListIncludedSubfolders;
constexpr Operation kCheck = Operation::kCheckBackupState;
constexpr Operation kAll = Operation::kBackupAllFiles;
constexpr Operation kModified = Operation::kBackupModifiedFiles;

struct RunScene : ReportScene {
  explicit RunScene(Operation operation, bool suppress = false, bool unattended = false)
      : run(window, main, clock, {},
            {operation, suppress, unattended, "/data", "", "ever", "E:", [] { return "1.00 Gb"; }}) {}

  /// A folder that is begun, and ended with these counts.
  void Folder(const std::string& path, std::int64_t files, std::int64_t new_files = 0,
              std::int64_t copied = 0, const std::string& warning = "") {
    run.FolderBegun({path, files, {}});
    if (!warning.empty()) run.WriteLine(warning);
    engine::FileCounts counts;
    counts.new_files = new_files;
    counts.copied = copied;
    run.FolderEnded({path, files, counts});
  }
  void Walk() {
    Folder("/data/full", 2, 2, 2);
    Folder("/data/empty", 0);
    Folder("/data/wrong", 3, 0, 0, "  Warning.");
    Folder("/data/rest", 4);
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
      {kCheck, full + "  Neither are backed up.|" + wrong},
  };
  for (const auto& [operation, expected] : cases) {
    RunScene scene(operation);
    scene.Walk();
    EXPECT_EQ(scene.lines, expected);
    RunScene suppressed(operation, true);
    suppressed.Walk();
    EXPECT_EQ(suppressed.lines, "  Warning.|");
  }
}

TEST(RunReport, OnlyAHeadLineGoesOnBehindThePhraseThatIsLeftOpen) {
  RunScene scene(kModified);
  scene.Folder("/data/a", 5, 3, 2);
  scene.Folder("/data/b", 5, 3, 2);
  scene.run.WriteLine("Warning.");
  scene.Folder("/data/c", 5, 3, 2);
  scene.run.ReportForBackupModifiedFiles({});
  const std::string due = "  0 modified files and 3 files not previously backed up.  2 files copied.";
  const std::string head = "    5 files in {source folder}/";
  const std::string expected =
      head + "a" + due + head + "b" + due + "|Warning.|" + head + "c" + due + "|For files new";
  EXPECT_EQ(scene.lines.substr(0, expected.size()), expected);
}

TEST(RunReport, TheHeadLineComesWithTheFirstFileThatIsCopied) {
  RunScene scene(kModified);
  scene.run.FolderBegun({"/data/a", 3, {}});
  EXPECT_EQ(scene.window.txbText.text(), "");
  scene.run.CopyBegun("/data/a/f");
  EXPECT_EQ(scene.window.txbText.text(), "    3 files in {source folder}/a");
}

TEST(RunReport, NamesOfAnyBytesStayOnTheirLine) {
  RunScene scene(kAll);
  RunReport run(scene.window, scene.main, scene.clock, {}, {kAll, false, false, "/d\n/", "/t\r", "", "", {}});
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
  EXPECT_EQ(window.lblFreeSpace.text(), "Free on Drive E: 1.00 Gb");
  scene.run.CopyEnded(2'097'152, 1);
  scene.run.CopyBegun("/data/b");
  EXPECT_EQ(window.lblFileName.text() + window.lblBytesCopied.text(), "/data/a");
  scene.clock.Advance(100ms);
  scene.run.Breathe();
  EXPECT_EQ(window.lblFileName.text(), "/data/b");
  EXPECT_EQ(window.lblBytesCopied.text(), "Copied: 2,097,152 bytes (2.00 Mb) in 1 file");
  scene.run.CopyEnded(12, 1'002);
  scene.run.Progress(0.5);
  scene.run.WriteSummary({});
  EXPECT_EQ(window.lblBytesCopied.text(), "Copied: 12 bytes in 1,002 files");
  EXPECT_EQ(window.task_progress(), 0.5);
  EXPECT_EQ(window.barProgress.fraction(), 0.5);
}

TEST(RunReport, AsksAndTellsByDialogsAndWritesWhenNobodyIsThere) {
  for (const bool unattended : {false, true}) {
    RunScene scene(kAll, false, unattended);
    scene.front_end.dialogs().yes_no = {true};
    EXPECT_EQ(scene.run.AskWhetherToGoOn({"a\r\nb", "Title"}), !unattended);
    scene.run.Tell("c\r\nd");
    std::string asked;
    for (const auto& box : scene.front_end.dialogs().asked) {
      asked += box.kind + (box.icon == ui::Icon::kExclamation ? "!" : "?") + box.title + box.text + "|";
    }
    EXPECT_EQ(asked, unattended ? "" : "yes-no!Titlea\r\nb|message!c\r\nd|");
    EXPECT_EQ(scene.lines, unattended ? "a b|c d|" : "");
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

TEST(RunReport, Summaries) {
  engine::Totals all;
  all.folders = all.non_empty_folders = all.warnings = 2;
  all.counts.met = all.counts.copied = all.bytes_met = all.bytes_copied = 1'000;
  all.counts.failed = 3;
  all.counts.new_files = 600;
  all.counts.modified_files = 403;
  engine::Totals one = all;
  one.counts.modified_files = one.counts.failed = 0;
  one.warnings = 1;
  engine::Totals unread;
  unread.unread_folders = unread.warnings = 1;
  struct Case {
    Operation operation;
    engine::Totals totals;
    const char* expected;
  };
  const Case cases[] = {
      {kList, all, "Number of folders: 2|Number of files: 1,000|Sum of file sizes: 1,000 bytes|"},
      {kAll, all,
       "|Number of non-empty folders accessed: 2|Number of files copied: 1,000|"
       "Number of errors when attempting to copy a file: 3|Sum of sizes of files copied: 1,000 bytes|"},
      {kAll, {}, "|Number of non-empty folders accessed: 0|Number of files copied: 0|"},
      {kModified, all,
       "For files new or modified ever:|Number of modified files: 403|"
       "Number of files not previously backed up: 600|"
       "Number of files modified or not previously backed up: 1,003|Number of files copied: 1,000|"
       "Number of errors when attempting to copy a file: 3|Sum of sizes of files copied: 1,000 bytes||"
       "This report contains 2 warnngs.|"},
      {kModified, one,
       "For files new or modified ever:|Number of modified files: 0|"
       "Number of files not previously backed up: 600|Number of files copied: 1,000|"
       "Sum of sizes of files copied: 1,000 bytes||This report contains one warning.|"},
      {kModified, unread,
       "For files new or modified ever:|Number of modified files: 0|"
       "Number of files not previously backed up: 0|Number of files copied: 0|"
       "Sum of sizes of files copied: 0 bytes|"},
      {kCheck, all,
       "For files new or modified ever:|Number of modified files: 403|Number of files not backed up: 600|"
       "Number of files modified or not backed up: 1,003|"},
      {kCheck, {}, "For files new or modified ever:|All files backed up.|"},
  };
  for (const Case& c : cases) {
    RunScene scene(c.operation);
    scene.run.WriteSummary(c.totals);
    EXPECT_EQ(scene.lines, c.expected);
  }
}

TEST(RunReport, ACheckThatDidNotSeeAllNeverSaysThatAllIsBackedUp) {
  for (const bool cancelled : {false, true}) {
    RunScene scene(kCheck);
    scene.main.stop = cancelled;
    engine::Totals totals;
    totals.unread_folders = cancelled ? 0 : 1;
    scene.run.WriteSummary(totals);
    EXPECT_EQ(scene.lines.find("All files"), std::string::npos);
  }
}

}  // namespace
}  // namespace report
