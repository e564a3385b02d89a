#include "report/str_proc.h"

#include <gtest/gtest.h>

namespace StrProc {

TEST(StrProc, ChangesTheUnitExactlyAtItsLimit) {
  const std::pair<double, const char*> cases[] = {{-1, ""},
                                                  {0, "0 bytes"},
                                                  {1'023, "1,023 bytes"},
                                                  {1'024, "1.0 Kb"},
                                                  {1'048'575, "1,024.0 Kb"},
                                                  {1'048'576, "1.0 Mb"},
                                                  {1'073'741'824, "1.0 Gb"}};
  for (const auto& [size, text] : cases) EXPECT_EQ(FormatSizeKbMbGb(size, 1, {}), text);
  EXPECT_EQ(FormatByteCountWithMb(1'048'576, true, {}), "1,048,576 Bytes");
  EXPECT_EQ(FormatByteCountWithMb(1'572'864, false, {".", ","}), "1.572.864 bytes (1,50 Mb)");
}

}  // namespace StrProc
