#include "report/report_texts.h"

#include <gtest/gtest.h>

#include "tests/report/report_scene.h"

namespace report {
namespace {

constexpr auto kAll = app::Operation::kBackupAllFiles;
constexpr auto kModified = app::Operation::kBackupModifiedFiles;

/// The phrases in a row, "|" for a line end.
std::string Joined(const std::vector<Phrase>& phrases) {
  std::string text;
  for (const Phrase& phrase : phrases) text += phrase.text + (phrase.new_line ? "|" : "");
  return text;
}

TEST(ReportTexts, TheHeadLineHasFiveCharactersForTheCount) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {-1, "    ? files  in F"}, {0, "    0 files in F"},     {1, "    1 file  in F"},
      {12, "   12 files in F"},  {12345, "12345 files in F"}, {123456, "23456 files in F"},
  };
  for (const auto& [count, expected] : cases) EXPECT_EQ(HeadLine(count, "F"), expected);
}

TEST(ReportTexts, ThePlaceholderStandsForEveryOccurrenceOfTheRoot) {
  EXPECT_EQ(WithPlaceholder("/data/x/data/y", "/data", "{}"), "{}/x{}/y");
  EXPECT_EQ(WithPlaceholder("/data", "/data", "{}"), "{}");
  EXPECT_EQ(WithPlaceholder("/dat", "/data", "{}"), "/dat");
  EXPECT_EQ(WithPlaceholder("/data", "", "{}"), "/data");
  EXPECT_EQ(WithPlaceholder("/home/user", "/", "{}"), "{}home/user");
  EXPECT_EQ(WithPlaceholder("E:\\a\\b", "E:\\", "{}"), "{}a\\b");
}

/// The result phrases of a folder: "A" and "M" by the two copying operations, "C" of a check, "D" of a
/// deletion.
std::string Result(char kind, const FolderResult& folder) {
  if (kind == 'C') return Joined(CheckResult(folder));
  if (kind == 'D') return Joined(DeletionResult(folder.files_in_folder, folder.copied));
  return Joined(CopyResult(kind == 'A' ? kAll : kModified, folder));
}

TEST(ReportTexts, ResultPhrasesFollowTheCounts) {
  struct Case {
    char kind;
    FolderResult folder;  ///< files, not backed up, modified, copied or deleted
    const char* expected;
  };
  const Case cases[] = {
      {'A', {0, 0, 0, 0}, "  All copied.|"},
      {'A', {1, 0, 0, 1}, "  Copied.|"},
      {'A', {2, 0, 0, 2}, "  Both copied.|"},
      {'A', {3, 0, 0, 1}, "  Only one file copied.|"},
      {'A', {9, 0, 0, 4}, "  Only 4 files copied.|"},
      {'A', {2, 0, 0, 0}, "  None copied.|"},
      {'M', {0, 0, 0, 0}, ""},
      {'M', {1, 1, 0, 1}, "Copied.|"},
      {'M', {2, 2, 0, 2}, "  Neither previously backed up.  Both copied.|"},
      {'M', {3, 3, 0, 3}, "  None previously backed up.  All Copied.|"},
      {'M', {1, 0, 1, 1}, "Copied.|"},
      {'M', {2, 0, 2, 2}, "  All are modified.  Both copied.|"},
      {'M', {5, 2, 1, 1}, "  1 modified file and 2 files not previously backed up.  One file copied.|"},
      {'M', {5, 1, 2, 2}, "  2 modified files and 1 file not previously backed up.  2 files copied."},
      {'M', {5, 2, 0, 0}, "  0 modified files and 2 files not previously backed up.  "},
      {'M', {5, 0, 0, 0}, ""},
      {'C', {1, 1, 0, 0}, ""},
      {'C', {2, 2, 0, 0}, "  Neither are backed up.|"},
      {'C', {3, 3, 0, 0}, "  None are backed up.|"},
      {'C', {1, 0, 1, 0}, ""},
      {'C', {2, 0, 2, 0}, "  Both are modified.|"},
      {'C', {3, 0, 3, 0}, "  All are modified.|"},
      {'C', {5, 1, 0, 0}, "  0 modified files and 1 file not backed up.  |"},
      {'C', {5, 0, 0, 0}, ""},
      {'D', {0, 0, 0, 0}, "  All deleted.|"},
      {'D', {1, 0, 0, 1}, "  One file deleted.|"},
      {'D', {2, 0, 0, 2}, "  Both deleted.|"},
      {'D', {1, 0, 0, 0}, "  Not deleted.|"},
      {'D', {2, 0, 0, 0}, "  Neither deleted.|"},
      {'D', {3, 0, 0, 0}, "  None deleted.|"},
      {'D', {9, 0, 0, 1}, "  One file deleted.|"},
      {'D', {9, 0, 0, 4}, "   4 files deleted.|"},
  };
  for (const Case& c : cases) EXPECT_EQ(Result(c.kind, c.folder), c.expected);
}

TEST(ReportTexts, OnlyPhrasesOfTheIndentRuleAreIndentedBehindAClosedHeadLine) {
  ReportScene scene;
  DisplayFilesCopied(scene.window, kAll, {2, 0, 0, 2});  // an empty report ends in no line end
  DisplayNumFilesInFolder(scene.window, false, "/backup/a", "/backup", 2);
  DisplayFilesCopied(scene.window, kAll, {2, 0, 0, 2});
  DisplayFilesCopied(scene.window, kAll, {2, 0, 0, 2});
  DisplayFilesCopied(scene.window, kAll, {2, 0, 0, 1});
  DisplayFilesCopied(scene.window, kModified, {2, 2, 0, 2});
  DisplayNewAndModifiedFiles(scene.window, {2, 2, 0, 0});
  DisplayFilesDeleted(scene.window, 1, 1);
  EXPECT_EQ(scene.lines,
            "  Both copied.|    2 files in {target folder}/a  Both copied.|      Both copied.|"
            "  Only one file copied.|      Neither previously backed up.  Both copied.|"
            "      Neither are backed up.|  One file deleted.|");
}

}  // namespace
}  // namespace report
