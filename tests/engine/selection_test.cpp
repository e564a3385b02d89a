#include "engine/selection.h"

#include <gtest/gtest.h>

#include "engine/file_proc.h"
#include "engine/wildcard_match.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

using app::Operation;
using platform::Entry;
using platform::FileTime;

TEST(WildcardMatch, FollowsItsTable) {
  struct Case {
    const char* text;
    const char* pattern;
    bool case_sensitive;
    bool matches;
  };
  for (const Case& c : std::vector<Case>{{"report", "r*t", true, true},
                                         {"report", "r?port", true, true},
                                         {"report", "r?ort", true, false},
                                         {"Doc", "doc", false, true},
                                         {"Doc", "doc", true, false},
                                         {"", "", true, true},
                                         {"a", "", true, false},
                                         {"", "*", true, true},
                                         {"", "?", true, false},
                                         {"abcabd", "*abd", true, true},
                                         {"jpeg", "*peg", true, true},
                                         {"aaa", "a*a*a*a", true, false},
                                         {"ÄRGER", "ärger", false, true},
                                         {"über", "?ber", true, true},
                                         {"a\\b", "a/b", false, true},
                                         {"anything", "any*", true, true},
                                         {"mississippi", "m*iss*pi", true, true}}) {
    EXPECT_EQ(WildcardMatch(c.text, c.pattern, c.case_sensitive), c.matches) << c.text << " ~ " << c.pattern;
  }
}

TEST(WildcardMatch, StaysQuickOnPatternsThatBacktrack) {
  EXPECT_FALSE(WildcardMatch(std::string(20'000, 'a'), "*a*a*a*a*a*a*a*a*b", true));
}

TEST(Filters, SkipPatternsAreTrimmedLoweredAndWithoutEmptyOnes) {
  EXPECT_EQ(SplitSkipFilepaths(" \\Temp ,, ,x y,"), (std::vector<std::string>{"/temp", "x y"}));
  EXPECT_TRUE(SplitSkipFilepaths("").empty());
  EXPECT_TRUE(PathMatchesSkipFilepaths("/src/TEMP/a.txt", SplitSkipFilepaths("b.doc,\\temp\\")));
  EXPECT_FALSE(PathMatchesSkipFilepaths("/src/a.txt", {}));
}

TEST(Filters, ExtensionIsWhatFollowsTheLastDotOfTheLastPart) {
  struct Case {
    const char* path;
    const char* pattern;
    bool without_extension;
    bool matches;
  };
  for (const Case& c : std::vector<Case>{{"/a.d/file", "d", false, false},
                                         {"/a.d/file", "d", true, true},
                                         {"/a/x.tar.gz", "gz", false, true},
                                         {"/a/x.JPG", "j?g", false, true},
                                         {"/a/x.jpeg", "", false, true},
                                         {"/a/x.", "*", false, true}}) {
    EXPECT_EQ(FileMatchesExtension(c.path, c.pattern, c.without_extension), c.matches) << c.path;
  }
}

FileTime At(int month, int day, int hour, int minute, int second = 0) {
  static constexpr int kDaysBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  const std::int64_t days = 20'454 + kDaysBefore[month - 1] + day - 1;  // 2026-01-01 is day 20,454
  return {((days * 24 + hour) * 60 + minute) * 60 + second, 0};
}

Entry File(std::int64_t size, std::optional<FileTime> modified) {
  return {"f", platform::EntryKind::kFile, size, modified, 0};
}

TEST(FileTimesDiffer, FollowsTheHalfHourRule) {
  struct Case {
    const char* what;
    FileTime source;
    FileTime target;
    bool differ;
  };
  for (const Case& c : std::vector<Case>{
           {"equal", At(5, 10, 12, 0), At(5, 10, 12, 0), false},
           {"seconds only", At(5, 10, 12, 0, 1), At(5, 10, 12, 0, 59), false},
           {"one minute", At(5, 10, 12, 0), At(5, 10, 12, 1), false},
           {"two minutes", At(5, 10, 12, 0), At(5, 10, 12, 2), true},
           {"30 minutes", At(5, 10, 12, 0), At(5, 10, 12, 30), false},
           {"45 minutes", At(5, 10, 12, 0), At(5, 10, 12, 45), true},
           {"60 minutes, target newer", At(5, 10, 12, 0), At(5, 10, 13, 0), false},
           {"60 minutes, source newer", At(5, 10, 13, 0), At(5, 10, 12, 0), false},
           {"61 minutes", At(5, 10, 12, 0), At(5, 10, 13, 1), true},
           {"8 hours", At(5, 10, 12, 0), At(5, 10, 20, 0), false},
           {"8.5 hours", At(5, 10, 12, 0), At(5, 10, 20, 30), true},
           {"a day", At(5, 10, 12, 0), At(5, 11, 12, 0), true},
           {"30 minutes across the month's end", At(5, 31, 23, 45), At(6, 1, 0, 15), true},
           {"one second across the month's end", At(5, 31, 23, 59, 59), At(6, 1, 0, 0, 0), true}}) {
    EXPECT_EQ(FileTimesDiffer(File(5, c.source), File(5, c.target)), c.differ) << c.what;
  }
}

TEST(FileTimesDiffer, LengthsDecideFirstAndUnreadableTimesAreNoDifference) {
  EXPECT_TRUE(FileTimesDiffer(File(5, At(5, 1, 0, 0)), File(6, At(6, 1, 0, 0))));
  EXPECT_TRUE(FileTimesDiffer(File(5'000'000'000, {}), File(5'000'000'001, {})));
  EXPECT_FALSE(FileTimesDiffer(File(5, {}), File(5, At(5, 1, 0, 0))));
}

TEST(FileSizeOf, SaturatesAtThirtyTwoBits) {
  EXPECT_EQ(FileSizeOf(std::int64_t{2'147'483'646}), 2'147'483'646);
  EXPECT_EQ(FileSizeOf(std::int64_t{2'147'483'648}), 2'147'483'647);
  EXPECT_EQ(FileSizeOf(platform::kUnknownSize), 2'147'483'647);
}

struct SelectionCase {
  const char* what;
  std::string folder;
  std::string name;
  std::int64_t size;
  const char* extension;
  bool selected;
  int skip_text;
};

TEST(Selection, LeavesOutLargeSystemAndSwapFilesOnly) {
  const std::int64_t limit = LargeFileLimit;
  for (const SelectionCase& c : std::vector<SelectionCase>{
           {"at the limit", "/c", "pagefile.sys", limit, "", true, 0},
           {"above the limit", "/c", "pagefile.sys", limit + 1, "", false, text::kLargeSystemFileSkipped},
           {"asked for by extension", "/c", "PAGEFILE.SYS", limit + 1, "sys", false,
            text::kLargeSystemFileSkipped},
           {"another extension pattern", "/c", "pagefile.sys", limit + 1, "s*", true, 0},
           {"a folder named so", "/c/my.system", "film.mkv", limit + 1, "", false,
            text::kLargeSystemFileSkipped},
           {"swap file", "/c/Windows", "a.swp", limit + 1, "", false, text::kLargeSwapFileSkipped},
           {"swap file elsewhere", "/c/home", "a.swp", limit + 1, "", true, 0},
           {"unreadable size counts as large", "/c", "x.sys", platform::kUnknownSize, "", false,
            text::kLargeSystemFileSkipped},
           {"a name without meaning", "/c", "tolm.xlsx", 10, "", true, 0}}) {
    SelectionRules rules;
    rules.operation = Operation::kBackupAllFiles;
    rules.filters.extension = c.extension;
    const Entry file{c.name, platform::EntryKind::kFile, c.size, {}, 0};
    const Selection selection = SelectFile(rules, {c.folder, file, nullptr});
    EXPECT_EQ(selection.selected, c.selected) << c.what;
    EXPECT_EQ(selection.skip_text, c.skip_text) << c.what;
  }
}

TEST(Selection, PictureCachesAreLeftOutOnlyWhileTheSwitchIsOn) {
  EXPECT_TRUE(IsPictureCache("/a/THUMBS.DB "));
  EXPECT_FALSE(IsPictureCache("/a/thumbs.db.bak"));
  const Entry file{"Thumbs.db", platform::EntryKind::kFile, 1, {}, 0};
  SelectionRules rules;
  rules.operation = Operation::kBackupAllFiles;
  EXPECT_TRUE(SelectFile(rules, {"/a", file, nullptr}).selected);
  rules.skip_picture_caches = true;
  EXPECT_FALSE(SelectFile(rules, {"/a", file, nullptr}).selected);
}

TEST(Selection, TheLimitLooksAtTheFilesOwnTimeAlsoForNewFiles) {
  SelectionRules rules;
  rules.operation = Operation::kBackupModifiedFiles;
  rules.filters.modified_since = At(5, 10, 12, 0);
  EXPECT_EQ(SelectFile(rules, {"/a", File(1, At(5, 10, 11, 59)), nullptr}).finding, Finding::kFilteredOut);
  EXPECT_EQ(SelectFile(rules, {"/a", File(1, At(5, 10, 12, 0)), nullptr}).finding, Finding::kNew);
}

}  // namespace
}  // namespace engine
