#include "text/grouped_number.h"

#include <gtest/gtest.h>

#include <limits>

namespace text {

TEST(GroupedNumber, GroupsWholeNumbersFromTheRight) {
  EXPECT_EQ(GroupedNumber(std::int64_t{-123456}, {}) + GroupedNumber(std::int64_t{0}, {}), "-123,4560");
  EXPECT_EQ(GroupedNumber(std::numeric_limits<std::int64_t>::min(), {}), "-9,223,372,036,854,775,808");
}

TEST(GroupedNumber, GroupsAsTheLocaleDoes) {
  const std::pair<std::vector<int>, const char*> cases[] = {
      {{3, 2}, "1,23,45,679"}, {{0}, "12345679"}, {{3, 0}, "12345,679"}};
  for (const auto& [groups, expected] : cases) {
    EXPECT_EQ(GroupedNumber(std::int64_t{12'345'679}, {",", ".", groups}), expected);
  }
}

TEST(GroupedNumber, RoundsHalfAwayFromZeroAndDropsTheZeroBeforeTheMark) {
  std::string words;
  for (const double value :
       {0.5, -0.5, 0.0, 0.125, -0.125, 0.999, 999.999, 1.05, 1.0000009, -0.001, -0.4, 1e18}) {
    for (const int decimals : {0, 1, 2}) words += GroupedNumber(value, decimals, {}) + " ";
  }
  EXPECT_EQ(words,
            "1 .5 .50 -1 -.5 -.50 0 .0 .00 0 .1 .13 0 -.1 -.13 1 1.0 1.00 1,000 1,000.0 1,000.00 1 1.1 1.05 "
            "1 1.0 1.00 0 .0 .00 0 -.4 -.40 1,000,000,000,000,000,000 1,000,000,000,000,000,000.0 "
            "1,000,000,000,000,000,000.00 ");
}

}  // namespace text
