#include "report/report_texts.h"

#include "tests/report/report_scene.h"

namespace report {

using Results = std::vector<std::pair<FolderResult, const char*>>;

/// The phrases in a row, "|" for a line end.
static std::string Joined(const std::vector<Phrase>& phrases) {
  std::string text;
  for (const Phrase& phrase : phrases) text += phrase.text + (phrase.new_line ? "|" : "");
  return text;
}

/// The counts of the folders: files, not backed up, modified, copied.
TEST(ReportTexts, WhatIsCopiedAndWhatIsDueIsCountedInWords) {
  const Results all = {{{0, 0, 0, 0}, "  All copied.|"},          {{1, 0, 0, 1}, "  Copied.|"},
                       {{2, 0, 0, 2}, "  Both copied.|"},         {{3, 0, 0, 1}, "  Only one file copied.|"},
                       {{9, 0, 0, 4}, "  Only 4 files copied.|"}, {{2, 0, 0, 0}, "  None copied.|"}};
  for (const auto& [folder, text] : all) EXPECT_EQ(Joined(CopyResult(kAll, folder)), text);
  const Results modified = {
      {{5, 0, 0, 0}, ""},
      {{1, 1, 0, 1}, "Copied.|"},
      {{1, 0, 1, 1}, "Copied.|"},
      {{2, 2, 0, 2}, "  Neither previously backed up.  Both copied.|"},
      {{3, 3, 0, 3}, "  None previously backed up.  All Copied.|"},
      {{2, 0, 2, 2}, "  All are modified.  Both copied.|"},
      {{5, 2, 1, 1}, "  1 modified file and 2 files not previously backed up.  One file copied.|"},
      {{5, 1, 2, 2}, "  2 modified files and 1 file not previously backed up.  2 files copied."}};
  for (const auto& [folder, text] : modified) EXPECT_EQ(Joined(CopyResult(kModified, folder)), text);
  const Results check = {{{1, 1, 0, 0}, ""},
                         {{2, 2, 0, 0}, "  Neither are backed up.|"},
                         {{3, 3, 0, 0}, "  None are backed up.|"},
                         {{1, 0, 1, 0}, ""},
                         {{2, 0, 2, 0}, "  Both are modified.|"},
                         {{3, 0, 3, 0}, "  All are modified.|"},
                         {{5, 1, 0, 0}, "  0 modified files and 1 file not backed up.  |"}};
  for (const auto& [folder, text] : check) EXPECT_EQ(Joined(CheckResult(folder)), text);
  std::string deleted;
  for (const auto& [files, gone] : {std::pair(1, 1), {2, 2}, {3, 3}, {3, 0}, {3, 1}, {5, 2}})
    deleted += Joined(DeletionResult(files, gone));
  EXPECT_EQ(deleted,
            "  One file deleted.|  Both deleted.|  All deleted.|  None deleted.|  One file deleted.|"
            "   2 files deleted.|");
}

TEST(ReportTexts, TheHeadLineHasFiveCharactersForTheCount) {
  EXPECT_EQ(HeadLine(-1, "F") + HeadLine(1, "F"), "    ? files  in F    1 file  in F");
  EXPECT_EQ(HeadLine(0, "F") + HeadLine(123'456, "F"), "    0 files in F23456 files in F");
}

TEST(ReportTexts, ThePlaceholderStandsForEveryOccurrenceOfTheRoot) {
  EXPECT_EQ(WithPlaceholder("/data/x/data/y", "/data", "{}"), "{}/x{}/y");
  EXPECT_EQ(WithPlaceholder("/dat", "/data", "{}"), "/dat");
  EXPECT_EQ(WithPlaceholder("/data", "", "{}"), "/data");
  EXPECT_EQ(WithPlaceholder("/home/user", "/", "{}"), "{}home/user");
}

TEST(ReportTexts, OnlyPhrasesOfTheIndentRuleAreIndentedBehindAClosedHeadLine) {
  ReportScene scene;
  DisplayFilesCopied(scene.window, kAll, {2, 0, 0, 2});  // an empty report ends in no line end
  DisplayNumFilesInFolder(scene.window, false, "/backup/a", "/backup", 2);
  for (const std::int64_t copied : {2, 2, 1}) DisplayFilesCopied(scene.window, kAll, {2, 0, 0, copied});
  DisplayFilesCopied(scene.window, kModified, {2, 2, 0, 2});
  DisplayNewAndModifiedFiles(scene.window, {2, 2, 0, 0});
  DisplayFilesDeleted(scene.window, 1, 1);
  EXPECT_EQ(scene.lines,
            "  Both copied.|    2 files in {target folder}/a  Both copied.|      Both copied.|"
            "  Only one file copied.|      Neither previously backed up.  Both copied.|"
            "      Neither are backed up.|  One file deleted.|");
}

}  // namespace report
