#include "report/str_proc.h"

#include <gtest/gtest.h>

namespace StrProc {
namespace {

const text::NumberMarks kEnglish{",", "."};

TEST(StrProc, AddsTheMbOnlyAboveOneMb) {
  EXPECT_EQ(FormatByteCountWithMb(-1, false, kEnglish), "");
  EXPECT_EQ(FormatByteCountWithMb(0, true, kEnglish), "0 Bytes");
  EXPECT_EQ(FormatByteCountWithMb(1'048'576, false, kEnglish), "1,048,576 bytes");
  EXPECT_EQ(FormatByteCountWithMb(1'048'577, false, kEnglish), "1,048,577 bytes (1.00 Mb)");
  EXPECT_EQ(FormatByteCountWithMb(1'572'864, true, {".", ","}), "1.572.864 Bytes (1,50 Mb)");
}

TEST(StrProc, ChangesTheUnitExactlyAtItsLimit) {
  EXPECT_EQ(FormatSizeKbMb(1'023, 1, kEnglish), "1,023 bytes");
  EXPECT_EQ(FormatSizeKbMb(1'024, 1, kEnglish), "1.0 Kb");
  EXPECT_EQ(FormatSizeKbMb(1'048'575, 1, kEnglish), "1,024.0 Kb");
  EXPECT_EQ(FormatSizeKbMb(1'073'741'824, 1, kEnglish), "1,024.0 Mb");
  EXPECT_EQ(FormatSizeKbMbGb(-1, 1, kEnglish), "");
  EXPECT_EQ(FormatSizeKbMbGb(0, 1, kEnglish), "0 bytes");
  EXPECT_EQ(FormatSizeKbMbGb(1'048'576, 1, kEnglish), "1.0 Mb");
  EXPECT_EQ(FormatSizeKbMbGb(1'073'741'824, 1, kEnglish), "1.0 Gb");
}

}  // namespace
}  // namespace StrProc
