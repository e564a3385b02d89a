#include "report/run_report.h"

#include <gtest/gtest.h>

#include "tests/report/report_scene.h"

namespace report {
namespace {

using app::Operation;
using std::chrono_literals::operator""ms;
using Lines = std::vector<std::string>;

constexpr Operation kList = Operation::kListIncludedSubfolders;
constexpr Operation kCheck = Operation::kCheckBackupState;
constexpr Operation kAll = Operation::kBackupAllFiles;
constexpr Operation kModified = Operation::kBackupModifiedFiles;

struct RunScene : ReportScene {
  explicit RunScene(Operation operation, bool suppress = false, bool unattended = false)
      : run(window, main, clock, {}, Facts(operation, suppress, unattended)) {}

  static RunFacts Facts(Operation operation, bool suppress, bool unattended) {
    return {operation, suppress,      unattended, "/data",
            "",        "at any time", "E:",       [] { return std::string("1.00 Gb"); }};
  }

  /// A folder that is begun, and ended with these counts.
  void Folder(const std::string& path, std::int64_t files, engine::FileCounts counts = {},
              const std::string& warning = "") {
    run.FolderBegun({path, files, {}});
    if (!warning.empty()) run.WriteLine(warning);
    run.FolderEnded({path, files, counts});
  }

  RunReport run;
};

engine::FileCounts Counts(std::int64_t new_files, std::int64_t modified, std::int64_t copied) {
  engine::FileCounts counts;
  counts.new_files = new_files;
  counts.modified_files = modified;
  counts.copied = copied;
  return counts;
}

/// A walk over a full folder, an empty one, one with nothing due but a warning, and one with nothing due.
void Walk(RunScene& scene) {
  scene.Folder("/data/full", 2, Counts(2, 0, 2));
  scene.Folder("/data/empty", 0);
  scene.Folder("/data/wrong", 3, {}, "      A warning.");
  scene.Folder("/data/rest", 4);
}

TEST(RunReport, ShowsTheFoldersThatTheOperationIsAbout) {
  const std::pair<Operation, Lines> cases[] = {
      {kList,
       {"    2 files in {source folder}/full", "    0 files in {source folder}/empty",
        "    3 files in {source folder}/wrong", "      A warning.", "    4 files in {source folder}/rest"}},
      {kAll,
       {"    2 files in {source folder}/full  Both copied.", "    3 files in {source folder}/wrong",
        "      A warning.", "  None copied.", "    4 files in {source folder}/rest  None copied."}},
      {kModified,
       {"    2 files in {source folder}/full  Neither previously backed up.  Both copied.",
        "    3 files in {source folder}/wrong", "      A warning."}},
      {kCheck,
       {"    2 files in {source folder}/full  Neither are backed up.", "    3 files in {source folder}/wrong",
        "      A warning."}},
  };
  for (const auto& [operation, expected] : cases) {
    RunScene scene(operation);
    Walk(scene);
    EXPECT_EQ(scene.lines, expected);
  }
}

TEST(RunReport, ASuppressedReportHoldsOnlyProblemsAndTheSummary) {
  for (const Operation operation : {kList, kAll, kModified, kCheck}) {
    RunScene scene(operation, true);
    Walk(scene);
    EXPECT_EQ(scene.lines, Lines{"      A warning."});
    scene.run.WriteSummary({});
    EXPECT_GT(scene.lines.size(), 1U);
  }
}

TEST(RunReport, TheNextHeadLineGoesOnBehindThePhraseThatIsLeftOpen) {
  RunScene scene(kModified);
  scene.Folder("/data/a", 5, Counts(2, 2, 3));
  scene.Folder("/data/b", 9, Counts(0, 1, 0));
  scene.Folder("/data/c", 5, Counts(4, 0, 2));
  scene.run.WriteLine("Warning.");
  scene.Folder("/data/d", 5, Counts(4, 0, 2));
  scene.run.WriteSummary({});
  const Lines expected = {
      "    5 files in {source folder}/a  2 modified files and 2 files not previously backed up.  3 files "
      "copied.    9 files in {source folder}/b  1 modified file and 0 files not previously backed up.  ",
      "    5 files in {source folder}/c  0 modified files and 4 files not previously backed up.  2 files "
      "copied.",
      "Warning.",
      "    5 files in {source folder}/d  0 modified files and 4 files not previously backed up.  2 files "
      "copied.",
      "For files new or modified at any time:",
  };
  ASSERT_GE(scene.lines.size(), expected.size());
  EXPECT_EQ(Lines(scene.lines.begin(), scene.lines.begin() + 5), expected);
}

TEST(RunReport, TheHeadLineComesWithTheFirstFileThatIsCopied) {
  RunScene scene(kModified);
  scene.run.FolderBegun({"/data/two\nlines", 3, {}});
  EXPECT_EQ(scene.window.txbText.text(), "");
  scene.run.CopyBegun("/data/two\nlines/f");
  EXPECT_EQ(scene.window.txbText.text(), "    3 files in {source folder}/two?lines");
}

TEST(RunReport, LabelsAndBarFollowEvery100MillisecondsAndAtTheEnd) {
  RunScene scene(kAll);
  const frmReport& window = scene.window;
  scene.run.CopyBegun("/data/a");
  EXPECT_EQ(window.lblFileName.text(), "/data/a");
  EXPECT_EQ(window.lblFreeSpace.text(), "Free on Drive E: 1.00 Gb");
  scene.run.CopyEnded(2'097'152, 1);
  scene.run.Progress(0.25);
  scene.run.CopyBegun("/data/b");
  EXPECT_EQ(window.lblFileName.text(), "/data/a");
  EXPECT_EQ(window.lblBytesCopied.text(), "");
  scene.clock.Advance(100ms);
  scene.run.Breathe();
  EXPECT_EQ(window.lblFileName.text(), "/data/b");
  EXPECT_EQ(window.lblBytesCopied.text(), "Copied: 2,097,152 bytes (2.00 Mb) in 1 file");
  EXPECT_EQ(window.barProgress.fraction(), 0.25);
  scene.run.CopyEnded(2'097'153, 1'002);
  scene.run.Progress(1);
  scene.run.WriteSummary({});
  EXPECT_EQ(window.lblBytesCopied.text(), "Copied: 2,097,153 bytes (2.00 Mb) in 1,002 files");
  EXPECT_EQ(window.task_progress(), 1.0);
  scene.window.SetReportButtons("Close");
  EXPECT_EQ(window.task_progress(), std::nullopt);
}

TEST(RunReport, AsksAndTellsByDialogsWhenSomebodyIsThere) {
  RunScene scene(kAll);
  scene.front_end.dialogs().yes_no = {true};
  EXPECT_TRUE(scene.run.AskWhetherToGoOn({"a\r\nb", "Title"}));
  scene.run.Tell("c\r\nd");
  const auto& asked = scene.front_end.dialogs().asked;
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_EQ(asked[0].text, "a\r\nb");
  EXPECT_EQ(asked[0].title, "Title");
  EXPECT_EQ(asked[0].icon, ui::Icon::kExclamation);
  EXPECT_EQ(asked[1].text, "c\r\nd");
  EXPECT_EQ(asked[1].icon, ui::Icon::kExclamation);
  EXPECT_EQ(scene.lines, Lines{});
}

TEST(RunReport, AnUnattendedRunWritesWhatItWouldAskAndNeverWaits) {
  RunScene scene(kAll, false, true);
  scene.front_end.dialogs().yes_no = {true};
  EXPECT_FALSE(scene.run.AskWhetherToGoOn({"a\r\nb", "Title"}));
  scene.run.Tell("c\r\nd");
  scene.run.Pause();
  EXPECT_EQ(scene.lines, (Lines{"a b", "c d"}));
  EXPECT_TRUE(scene.front_end.dialogs().asked.empty());
}

TEST(RunReport, APauseHoldsUntilTheUserCancels) {
  RunScene scene(kAll);
  scene.front_end.Post([&] { ui::headless::Click(scene.window.cmdCancelClose); });
  scene.run.Pause();
  EXPECT_TRUE(scene.run.StopRequested());
  scene.run.Pause();  // returns at once
}

TEST(RunReport, CountsAreEqualBetweenFoldersAndDifferInThem) {
  RunScene scene(kAll);
  engine::FileCounts counts;
  counts.met = 5;
  counts.copied = counts.filtered_out = 2;
  counts.failed = 1;
  scene.run.FolderBegun({"/data", 5, {}});
  scene.run.CopyEnded(10, 2);
  EXPECT_NE(scene.run.counts().files_met, scene.run.counts().files_in_folders);
  scene.run.FolderEnded({"/data", 5, counts});
  EXPECT_EQ(scene.run.counts().files_met, scene.run.counts().files_in_folders);
  EXPECT_EQ(scene.run.counts().files_copied, 2);
  EXPECT_EQ(scene.run.counts().files_to_process, 3);
}

struct SummaryCase {
  const char* name;
  Operation operation;
  engine::Totals totals;
  Lines expected;
};

TEST(RunReport, Summaries) {
  engine::Totals listed;
  listed.folders = 1'234;
  listed.counts.met = 5'678;
  listed.bytes_met = 1'048'577;
  engine::Totals nothing;
  engine::Totals all;
  all.non_empty_folders = 2;
  all.counts.copied = 1'000;
  all.counts.failed = 3;
  all.bytes_copied = 12'345;
  all.warnings = 2;
  engine::Totals both = all;
  both.counts.new_files = 600;
  both.counts.modified_files = 403;
  engine::Totals only_new = both;
  only_new.counts.modified_files = only_new.counts.failed = 0;
  only_new.warnings = 1;
  engine::Totals not_copied = nothing;
  not_copied.warnings = 5;
  engine::Totals unread;
  unread.unread_folders = 1;
  const std::string since = "For files new or modified at any time:";
  const SummaryCase cases[] = {
      {"list",
       kList,
       listed,
       {"Number of folders: 1,234", "Number of files: 5,678",
        "Sum of file sizes: 1,048,577 bytes (1.00 Mb)"}},
      {"all",
       kAll,
       all,
       {"", "Number of non-empty folders accessed: 2", "Number of files copied: 1,000",
        "Number of errors when attempting to copy a file: 3", "Sum of sizes of files copied: 12,345 bytes"}},
      {"all, nothing copied",
       kAll,
       nothing,
       {"", "Number of non-empty folders accessed: 0", "Number of files copied: 0"}},
      {"modified",
       kModified,
       both,
       {since, "Number of modified files: 403", "Number of files not previously backed up: 600",
        "Number of files modified or not previously backed up: 1,003", "Number of files copied: 1,000",
        "Number of errors when attempting to copy a file: 3", "Sum of sizes of files copied: 12,345 bytes",
        "", "This report contains 2 warnngs."}},
      {"modified, only new",
       kModified,
       only_new,
       {since, "Number of modified files: 0", "Number of files not previously backed up: 600",
        "Number of files copied: 1,000", "Sum of sizes of files copied: 12,345 bytes", "",
        "This report contains one warning."}},
      {"modified, nothing copied",
       kModified,
       not_copied,
       {since, "Number of modified files: 0", "Number of files not previously backed up: 0",
        "Number of files copied: 0", "Sum of sizes of files copied: 0 bytes"}},
      {"check",
       kCheck,
       both,
       {since, "Number of modified files: 403", "Number of files not backed up: 600",
        "Number of files modified or not backed up: 1,003"}},
      {"check, nothing due", kCheck, nothing, {since, "All files backed up."}},
      {"check, a folder not seen",
       kCheck,
       unread,
       {since, "Number of modified files: 0", "Number of files not backed up: 0",
        "Number of files modified or not backed up: 0"}},
  };
  for (const SummaryCase& c : cases) {
    RunScene scene(c.operation);
    scene.run.WriteSummary(c.totals);
    EXPECT_EQ(scene.lines, c.expected) << c.name;
  }
}

TEST(RunReport, ACancelledCheckNeverSaysThatAllIsBackedUp) {
  RunScene scene(kCheck);
  scene.main.stop = true;
  scene.run.WriteSummary({});
  EXPECT_EQ(scene.lines.back(), "Number of files modified or not backed up: 0");
}

}  // namespace
}  // namespace report
