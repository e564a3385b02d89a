#include "engine/selection/selection.h"

#include <gtest/gtest.h>

#include "engine/selection/file_proc.h"
#include "engine/selection/wildcard_match.h"
#include "text/text_numbers.h"

namespace engine {

using app::Operation;
using platform::Entry;
using TextsAndPatterns = std::vector<std::pair<const char*, const char*>>;

constexpr std::int64_t kNoon = 1'778'414'400;      ///< 2026-05-10 12:00 UTC
constexpr std::int64_t kMonthEnd = 1'780'272'000;  ///< 2026-06-01 00:00 UTC

static Entry File(std::int64_t size, std::optional<std::int64_t> seconds = {},
                  const std::string& name = "f") {
  Entry file{name, platform::EntryKind::kFile, size, {}, 0};
  if (seconds) file.modified = platform::FileTime{*seconds, 0};
  return file;
}

TEST(WildcardMatch, KnowsAnyRunAndOneCharacterAndStaysQuickWhenItBacktracks) {
  const TextsAndPatterns fits = {{"report", "r*t"}, {"report", "r?port"}, {"", ""},
                                 {"", "*"},         {"abcabd", "*abd"},   {"jpeg", "*peg"},
                                 {"über", "?ber"},  {"anything", "any*"}, {"mississippi", "m*iss*pi"}};
  for (const auto& [text, pattern] : fits) EXPECT_TRUE(WildcardMatch(text, pattern, true)) << pattern;
  const TextsAndPatterns fits_not = {{"report", "r?ort"}, {"a", ""}, {"", "?"}, {"aaa", "a*a*a*a"}};
  for (const auto& [text, pattern] : fits_not) EXPECT_FALSE(WildcardMatch(text, pattern, true)) << pattern;
  const TextsAndPatterns fits_without_case = {
      {"Doc", "doc"}, {"ÄRGER", "ärger"}, {"a\\b", "a/b"}, {"ΟΔΟΣ", "οδος"}};
  for (const auto& [text, pattern] : fits_without_case) {
    EXPECT_TRUE(!WildcardMatch(text, pattern, true) && WildcardMatch(text, pattern, false)) << pattern;
  }
  EXPECT_FALSE(WildcardMatch(std::string(20'000, 'a'), "*a*a*a*a*a*a*a*a*b", true));
}

TEST(FileTimesDiffer, ByLengthAndByTwoMinutesOrMoreButNotByHalfHoursUpToEight) {
  const auto differ = [](std::int64_t a, std::int64_t b) {
    EXPECT_EQ(FileTimesDiffer(File(5, a), File(5, b)), FileTimesDiffer(File(5, b), File(5, a)));
    return FileTimesDiffer(File(5, a), File(5, b));
  };
  constexpr int kDay = 24 * 60;
  for (const int minutes : {0, 1, 30, 60, 450, 480})
    EXPECT_FALSE(differ(kNoon, kNoon + minutes * 60)) << minutes;
  for (const int minutes : {2, 45, 61, 510, kDay, 365 * kDay}) {
    EXPECT_TRUE(differ(kNoon, kNoon + minutes * 60)) << minutes;
  }
  EXPECT_TRUE(differ(kMonthEnd - 900, kMonthEnd + 900)) << "half an hour across the month's end";
  EXPECT_TRUE(differ(kMonthEnd - 1, kMonthEnd)) << "a second across the month's end";
  EXPECT_FALSE(FileTimesDiffer(File(5), File(5, kNoon))) << "a time that cannot be read";
  constexpr std::int64_t k1980 = 315'532'800;
  constexpr std::int64_t k2108 = 4'354'819'200;
  EXPECT_FALSE(FileTimesDiffer(File(5, -7), File(5, k1980 + 3'600))) << "FAT cannot hold it";
  EXPECT_FALSE(FileTimesDiffer(File(5, k2108 + kNoon), File(5, k2108 - 2)));
  EXPECT_TRUE(FileTimesDiffer(File(5, k1980 - 3'600), File(5, k2108 - 2)));
  EXPECT_TRUE(FileTimesDiffer(File(5, k2108 - 1), File(5, k2108 - 181))) << "FAT can hold it";
  EXPECT_TRUE(FileTimesDiffer(File(5, k1980), File(5, k1980 + 180)));
  EXPECT_TRUE(FileTimesDiffer(File(5'000'000'000), File(5'000'000'001)));
}

TEST(Selection, LeavesOutLargeSystemAndSwapFilesOnly) {
  const auto left_out = [](const std::string& folder, const std::string& name, const std::string& extension,
                           std::int64_t size) {
    const SelectionRules rules{Operation::kBackupAllFiles, {extension, {}, {}}, false};
    const Selection selection = SelectFile(rules, {folder, File(size, {}, name)});
    EXPECT_EQ(selection.selected, selection.skip_text == 0);
    return selection.skip_text;
  };
  const std::int64_t large = LargeFileLimit + 1;
  EXPECT_EQ(left_out("/c", "pagefile.sys", "", LargeFileLimit), 0);
  EXPECT_EQ(left_out("/c", "pagefile.sys", "", large), text::kLargeSystemFileSkipped);
  EXPECT_EQ(left_out("/c", "PAGEFILE.SYS", "sys", large), text::kLargeSystemFileSkipped);
  EXPECT_EQ(left_out("/c/my.system", "film.mkv", "", large), text::kLargeSystemFileSkipped);
  EXPECT_EQ(left_out("/c", "x.sys", "", platform::kUnknownSize), text::kLargeSystemFileSkipped);
  EXPECT_EQ(left_out("/c/Windows", "a.swp", "", large), text::kLargeSwapFileSkipped);
  EXPECT_EQ(left_out("/c/home", "a.swp", "", large), 0);
  EXPECT_EQ(left_out("/c", "Thumbs.db", "", 1), 0) << "unless picture caches are to be skipped";
  EXPECT_FALSE(
      SelectFile({Operation::kBackupAllFiles, {}, true}, {"/c", File(1, {}, "THUMBS.DB ")}).selected);
  const Entry up_to_date = File(large, kNoon, "x.sys");
  EXPECT_EQ(
      SelectFile({Operation::kBackupModifiedFiles, {}, false}, {"/c", up_to_date, &up_to_date}).skip_text, 0);
}

TEST(Selection, TheLimitLooksAtTheFilesOwnTimeAlsoForNewFiles) {
  const SelectionRules rules{Operation::kBackupModifiedFiles, {{}, {}, platform::FileTime{kNoon, 0}}, false};
  EXPECT_EQ(SelectFile(rules, {"/a", File(1, kNoon - 1)}).finding, Finding::kFilteredOut);
  EXPECT_EQ(SelectFile(rules, {"/a", File(1, kNoon)}).finding, Finding::kNew);
}

}  // namespace engine
