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
  const struct {
    double value;
    int decimals;
    const char* expected;
  } cases[] = {{0.5, 2, ".50"},    {-0.5, 2, "-.50"},        {0, 2, ".00"},
               {0, 0, "0"},        {0.125, 2, ".13"},        {-0.125, 2, "-.13"},
               {0.999, 2, "1.00"}, {999.999, 2, "1,000.00"}, {2.5, 0, "3"},
               {1.05, 1, "1.1"},   {1.0000009, 2, "1.00"},   {-0.001, 2, ".00"},
               {-0.4, 0, "0"},     {1.02, 2, "1.02"},        {1e18, 2, "1,000,000,000,000,000,000.00"}};
  for (const auto& c : cases) EXPECT_EQ(GroupedNumber(c.value, c.decimals, {}), c.expected);
}

}  // namespace text
