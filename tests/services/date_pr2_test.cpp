#include "services/date_pr2.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_system.h"

namespace DatePr2 {

TEST(ModifiedSince, ListsLongerAndLongerPeriods) {
  const text::ProgramTexts texts("353 any\n356 week\n357 month\n358 2 months");
  platform::memory::MemoryClock clock;
  std::string list;
  platform::FileTime last = clock.Now();
  for (int i = 0; i < ModifiedSinceCount(); ++i) {
    list += ModifiedSinceText(i, texts) + ';';
    const auto limit = ModifiedSinceLimit(i, clock);
    EXPECT_TRUE(i == 0 ? !limit : *limit < last) << i;
    last = limit.value_or(last);
  }
  EXPECT_EQ(list, "any;week;month;2 months;3 months;4 months;6 months;9 months;12 months;24 months;");
  EXPECT_FALSE(ModifiedSinceLimit(-1, clock));
}

/// Two hours ahead of UTC from 2024-03-31 01:00 UTC on, one hour before.
class SummerClock : public platform::memory::MemoryClock {
 public:
  platform::CalendarTime ToLocal(platform::FileTime time) override {
    time.seconds += time.seconds < 1'711'846'800 ? 3600 : 7200;
    return platform::ToUtc(time);
  }
};

TEST(ModifiedSince, CountsBackInTheLocalCalendar) {
  const struct {
    std::int64_t now;  ///< 2024-03-31 12:00:00 local, 2024-02-29 00:30 local, 2024-05-01 00:30 local
    int index;
    std::int64_t expected;
  } cases[] = {
      {1'711'879'200, 1, 1'711'278'000},  // a week: 2024-03-24 12:00 local, winter time
      {1'711'879'200, 2, 1'709'204'400},  // a month: 2024-02-29 12:00
      {1'709'163'000, 8, 1'677'540'600},  // 12 months before a leap day: 2023-02-28 00:30
      {1'714'516'200, 2, 1'711'924'200},  // a month: 2024-04-01 00:30 local, still March in UTC
      {1'714'516'200, 3, 1'709'249'400},  // two months: 2024-03-01 00:30 local, winter time
  };
  for (const auto& c : cases) {
    SummerClock clock;
    clock.Set({c.now, 7});
    EXPECT_EQ(ModifiedSinceLimit(c.index, clock), (platform::FileTime{c.expected, 7})) << c.index;
  }
}

}  // namespace DatePr2
