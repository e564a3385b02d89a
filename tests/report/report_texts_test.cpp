#include "report/report_texts.h"

#include "tests/report/report_scene.h"

namespace report {

/// The phrases in a row, "|" for a line end.
static std::string Joined(const std::vector<Phrase>& phrases) {
  std::string text;
  for (const Phrase& phrase : phrases) text += phrase.text + (phrase.new_line ? "|" : "");
  return text;
}

TEST(ReportTexts, WhatIsCopiedAndWhatIsDueIsCountedInWords) {
  Story story{"report/told/"};
  const auto tell = [&](const char* of, std::initializer_list<std::int64_t> counts,
                        const std::vector<Phrase>& phrases) {
    for (const std::int64_t count : counts) story.told += std::to_string(count) + " ";
    story.told += of + Joined(phrases) + "\n";
  };
  for (std::int64_t files = 0; files < 5; ++files) {
    for (std::int64_t some = 0; some <= files; ++some) {
      tell("all, copied:", {files, some}, CopyResult(kAll, {files, 0, 0, some}));
      tell("deleted:", {files, some}, DeletionResult(files, some));
      for (std::int64_t modified = 0; modified <= some; ++modified) {
        const std::int64_t fresh = some - modified;
        tell("new and modified:", {files, fresh, modified}, CheckResult({files, fresh, modified, 0}));
        for (const std::int64_t copied : {std::int64_t{0}, (some + 1) / 2, some})
          tell("new and modified, copied:", {files, fresh, modified, copied},
               CopyResult(kModified, {files, fresh, modified, copied}));
      }
    }
  }
}

TEST(ReportTexts, TheHeadLineHasFiveCharactersForTheCountAndAPlaceholderForEveryOccurrenceOfTheRoot) {
  EXPECT_EQ(HeadLine(-1, "F") + HeadLine(1, "F"), "    ? files  in F    1 file  in F");
  EXPECT_EQ(HeadLine(0, "F") + HeadLine(123'456, "F"), "    0 files in F23456 files in F");
  EXPECT_EQ(WithPlaceholder("/data/x/data/y", "/data", "{}"), "{}/x{}/y");
  EXPECT_EQ(WithPlaceholder("/dat", "/data", "{}"), "/dat");
  EXPECT_EQ(WithPlaceholder("/data", "", "{}"), "/data");
  EXPECT_EQ(WithPlaceholder("/home/user", "/", "{}"), "{}home/user");
}

}  // namespace report
