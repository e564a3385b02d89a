#include "services/date_pr2.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_system.h"

namespace DatePr2 {

TEST(ModifiedSince, ListsThePeriodsOfWhichTheFirstIsNoLimit) {
  const text::ProgramTexts texts("353 any\n356 week\n357 month\n358 2 months");
  std::string list;
  for (int i = 0; i < ModifiedSinceCount(); ++i) list += ModifiedSinceText(i, texts) + ';';
  EXPECT_EQ(list, "any;week;month;2 months;3 months;4 months;6 months;9 months;12 months;24 months;");
  platform::memory::MemoryClock clock;
  for (const int none : {-1, 0, ModifiedSinceCount()}) EXPECT_FALSE(ModifiedSinceLimit(none, clock)) << none;
  EXPECT_EQ(ModifiedSinceText(-1, texts) + ModifiedSinceText(ModifiedSinceCount(), texts), "");
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
  SummerClock clock;
  const auto limit = [&](std::int64_t now, int index) {
    clock.Set({now, 7});
    return ModifiedSinceLimit(index, clock).value_or(platform::FileTime{});
  };
  const std::int64_t now = 1'711'879'200;       // 2024-03-31 12:00 local
  const std::int64_t leap_day = 1'709'163'000;  // 2024-02-29 00:30 local
  const std::int64_t in_may = 1'714'516'200;    // 2024-05-01 00:30 local
  EXPECT_EQ(limit(now, 1), (platform::FileTime{1'711'278'000, 7})) << "a week: 2024-03-24 12:00, winter time";
  EXPECT_EQ(limit(now, 2), (platform::FileTime{1'709'204'400, 7})) << "a month: 2024-02-29 12:00";
  EXPECT_EQ(limit(leap_day, 8), (platform::FileTime{1'677'540'600, 7})) << "12 months: 2023-02-28 00:30";
  EXPECT_EQ(limit(in_may, 2), (platform::FileTime{1'711'924'200, 7}))
      << "a month: 2024-04-01 00:30, still March in UTC";
  EXPECT_EQ(limit(in_may, 3), (platform::FileTime{1'709'249'400, 7}))
      << "2 months: 2024-03-01 00:30, winter time";
}

}  // namespace DatePr2
