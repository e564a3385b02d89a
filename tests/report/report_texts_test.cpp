#include "report/report_texts.h"

#include <gtest/gtest.h>

#include "tests/report/report_scene.h"

namespace report {
namespace {

constexpr auto kAll = app::Operation::kBackupAllFiles;
constexpr auto kModified = app::Operation::kBackupModifiedFiles;

/// The phrases as the report would hold them behind a head line "H".
std::string Joined(const std::vector<Phrase>& phrases) {
  std::string text = "H";
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
  struct Case {
    const char* path;
    const char* root;
    const char* expected;
  };
  const Case cases[] = {
      {"/data/a", "/data", "{}/a"},   {"/data", "/data", "{}"},   {"/data/x/data/y", "/data", "{}/x{}/y"},
      {"/dat", "/data", "/dat"},      {"/data/a", "", "/data/a"}, {"/home/user", "/", "{}home/user"},
      {"E:\\a\\b", "E:\\", "{}a\\b"}, {"{}{}", "{}", "{}{}"},
  };
  for (const Case& c : cases) EXPECT_EQ(WithPlaceholder(c.path, c.root, "{}"), c.expected);
}

TEST(ReportTexts, CopyResultOfBackUpAllFiles) {
  struct Case {
    std::int64_t files, copied;
    const char* expected;
  };
  const Case cases[] = {
      {0, 0, "H  All copied.|"},           {1, 1, "H  Copied.|"},
      {2, 2, "H  Both copied.|"},          {3, 3, "H  All copied.|"},
      {3, 1, "H  Only one file copied.|"}, {9, 4, "H  Only 4 files copied.|"},
      {2, 0, "H  None copied.|"},
  };
  for (const Case& c : cases) EXPECT_EQ(Joined(CopyResult(kAll, {c.files, 0, 0, c.copied})), c.expected);
}

TEST(ReportTexts, CopyResultOfBackUpNewAndModified) {
  struct Case {
    std::int64_t files, not_backed_up, modified, copied;
    const char* expected;
  };
  const Case cases[] = {
      {0, 0, 0, 0, "H"},
      {1, 1, 0, 1, "HCopied.|"},
      {2, 2, 0, 2, "H  Neither previously backed up.  Both copied.|"},
      {3, 3, 0, 3, "H  None previously backed up.  All Copied.|"},
      {1, 0, 1, 1, "HCopied.|"},
      {2, 0, 2, 2, "H  All are modified.  Both copied.|"},
      {5, 1, 2, 3, "H  2 modified files and 1 file not previously backed up.  All Copied.|"},
      {5, 2, 1, 1, "H  1 modified file and 2 files not previously backed up.  One file copied.|"},
      {5, 2, 2, 3, "H  2 modified files and 2 files not previously backed up.  3 files copied."},
      {5, 2, 0, 0, "H  0 modified files and 2 files not previously backed up.  "},
      {5, 0, 0, 0, "H"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Joined(CopyResult(kModified, {c.files, c.not_backed_up, c.modified, c.copied})), c.expected);
  }
}

TEST(ReportTexts, CheckResult) {
  struct Case {
    std::int64_t files, not_backed_up, modified;
    const char* expected;
  };
  const Case cases[] = {
      {0, 0, 0, "H"},
      {1, 1, 0, "H"},
      {2, 2, 0, "H  Neither are backed up.|"},
      {3, 3, 0, "H  None are backed up.|"},
      {1, 0, 1, "H"},
      {2, 0, 2, "H  Both are modified.|"},
      {3, 0, 3, "H  All are modified.|"},
      {5, 1, 0, "H  0 modified files and 1 file not backed up.  |"},
      {5, 2, 1, "H  1 modified file and 2 files not backed up.  |"},
      {5, 0, 0, "H"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Joined(CheckResult({c.files, c.not_backed_up, c.modified, 0})), c.expected);
  }
}

TEST(ReportTexts, DeletionResult) {
  struct Case {
    std::int64_t files, deleted;
    const char* expected;
  };
  const Case cases[] = {
      {0, 0, "H  All deleted.|"},  {1, 1, "H  One file deleted.|"}, {2, 2, "H  Both deleted.|"},
      {3, 3, "H  All deleted.|"},  {1, 0, "H  Not deleted.|"},      {2, 0, "H  Neither deleted.|"},
      {3, 0, "H  None deleted.|"}, {9, 1, "H  One file deleted.|"}, {9, 4, "H   4 files deleted.|"},
  };
  for (const Case& c : cases) EXPECT_EQ(Joined(DeletionResult(c.files, c.deleted)), c.expected);
}

TEST(ReportTexts, OnlyPhrasesOfTheIndentRuleAreIndentedBehindAClosedHeadLine) {
  ReportScene scene;
  frmReport& window = scene.window;
  DisplayFilesCopied(window, kAll, {2, 0, 0, 2});  // an empty report ends in no line end
  DisplayNumFilesInFolder(window, true, "/data/a", "/data", 2);
  DisplayFilesCopied(window, kAll, {2, 0, 0, 2});
  DisplayFilesCopied(window, kAll, {2, 0, 0, 2});
  DisplayFilesCopied(window, kAll, {2, 0, 0, 1});
  DisplayFilesCopied(window, kModified, {2, 2, 0, 2});
  DisplayNewAndModifiedFiles(window, {2, 2, 0, 0});
  DisplayNumFilesInFolder(window, false, "/backup/a", "/backup", 1);
  DisplayFilesDeleted(window, 1, 1);
  const std::vector<std::string> expected = {
      "  Both copied.",
      "    2 files in {source folder}/a  Both copied.",
      "      Both copied.",
      "  Only one file copied.",
      "      Neither previously backed up.  Both copied.",
      "      Neither are backed up.",
      "    1 file  in {target folder}/a  One file deleted.",
  };
  EXPECT_EQ(scene.lines, expected);
}

}  // namespace
}  // namespace report
