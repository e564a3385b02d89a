#include "text/str_proc.h"

#include <gtest/gtest.h>

namespace StrProc {

TEST(StrProc, SizesChangeTheirUnitExactlyAtItsLimit) {
  EXPECT_EQ(FormatSizeKbMbGb(-1, 1, {}) + FormatSizeKbMbGb(1'023, 1, {}), "1,023 bytes");
  EXPECT_EQ(FormatSizeKbMbGb(1'024, 1, {}) + FormatSizeKbMbGb(1'048'575, 1, {}), "1.0 Kb1,024.0 Kb");
  EXPECT_EQ(FormatSizeKbMbGb(1'048'576, 1, {}) + FormatSizeKbMbGb(1'073'741'824, 1, {}), "1.0 Mb1.0 Gb");
  EXPECT_EQ(FormatByteCountWithMb(1'048'576, true, {}), "1,048,576 Bytes");
  EXPECT_EQ(FormatSizeKbMb(1'073'741'824, 1, {}) + FormatByteCount(0, false, {}), "1,024.0 Mb0 bytes");
  EXPECT_EQ(FormatByteCountWithMb(1'572'864, false, {".", ","}), "1.572.864 bytes (1,50 Mb)");
}

TEST(StrProc, CountsAreWrittenWithTheirSign) { EXPECT_EQ(Str(0) + Str(-7) + Trim(-7), " 0-7-7"); }

}  // namespace StrProc
