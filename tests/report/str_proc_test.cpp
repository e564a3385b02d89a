#include "report/str_proc.h"

#include <gtest/gtest.h>

namespace StrProc {
namespace {

const text::NumberMarks kEnglish{",", "."};
const text::NumberMarks kGerman{".", ","};

TEST(StrProc, ConvertsCountsAsThePhrasesNeedThem) {
  EXPECT_EQ(Trim(1234), "1234");
  EXPECT_EQ(Str(12), " 12");
  EXPECT_EQ(Str(-12), "-12");
  EXPECT_EQ(PluralSuffix(1), "");
  EXPECT_EQ(PluralSuffix(0), "s");
  EXPECT_EQ(PluralSuffix(2), "s");
}

TEST(StrProc, AddsTheMbOnlyAboveOneMb) {
  const std::pair<double, const char*> cases[] = {
      {-1, ""},
      {0, "0 bytes"},
      {1'048'576, "1,048,576 bytes"},
      {1'048'577, "1,048,577 bytes (1.00 Mb)"},
      {233'222'222'222, "233,222,222,222 bytes (222,417.95 Mb)"},
  };
  for (const auto& [size, expected] : cases)
    EXPECT_EQ(FormatByteCountWithMb(size, false, kEnglish), expected);
  EXPECT_EQ(FormatByteCountWithMb(1'572'864, true, kGerman), "1.572.864 Bytes (1,50 Mb)");
  EXPECT_EQ(FormatByteCount(0, true, kEnglish), "0 Bytes");
  EXPECT_EQ(FormatByteCount(-1, true, kEnglish), "");
}

TEST(StrProc, ChangesTheUnitExactlyAtItsLimit) {
  struct Case {
    double size;
    const char* up_to_mb;
    const char* up_to_gb;
  };
  const Case cases[] = {
      {-1, "", ""},
      {0, "0 bytes", "0 bytes"},
      {1'023, "1,023 bytes", "1,023 bytes"},
      {1'024, "1.0 Kb", "1.0 Kb"},
      {1'048'575, "1,024.0 Kb", "1,024.0 Kb"},
      {1'048'576, "1.0 Mb", "1.0 Mb"},
      {1'073'741'824, "1,024.0 Mb", "1.0 Gb"},
      {5'000.0 * 1'073'741'824, "5,120,000.0 Mb", "5,000.0 Gb"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FormatSizeKbMb(c.size, 1, kEnglish), c.up_to_mb);
    EXPECT_EQ(FormatSizeKbMbGb(c.size, 1, kEnglish), c.up_to_gb);
  }
}

}  // namespace
}  // namespace StrProc
