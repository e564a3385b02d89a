#include "services/date_pr2.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "text/text_numbers.h"

namespace DatePr2 {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

struct Period {
  int number;  ///< of the text
  int days;
  int months;
};

constexpr std::array kPeriods = {
    Period{text::kAtAnyTime, 0, 0},        Period{text::kInTheLastWeek, 7, 0},
    Period{text::kInTheLastMonth, 0, 1},   Period{text::kInTheLastMonths, 0, 2},
    Period{text::kInTheLastMonths, 0, 3},  Period{text::kInTheLastMonths, 0, 4},
    Period{text::kInTheLastMonths, 0, 6},  Period{text::kInTheLastMonths, 0, 9},
    Period{text::kInTheLastMonths, 0, 12}, Period{text::kInTheLastMonths, 0, 24},
};

const Period* PeriodAt(int index) {
  return index < 0 || index >= ModifiedSinceCount() ? nullptr : &kPeriods[static_cast<std::size_t>(index)];
}

year_month_day DayOf(const platform::CalendarTime& time) {
  return {std::chrono::year(time.year), std::chrono::month(static_cast<unsigned>(time.month)),
          std::chrono::day(static_cast<unsigned>(time.day))};
}

/// The seconds of a calendar's clock since its 1970-01-01.
std::int64_t SecondsOn(sys_days day, const platform::CalendarTime& time_of_day) {
  const std::int64_t minutes =
      (std::int64_t{day.time_since_epoch().count()} * 24 + time_of_day.hour) * 60 + time_of_day.minute;
  return minutes * 60 + time_of_day.second;
}

sys_days DayBefore(year_month_day day, const Period& period) {
  day -= std::chrono::months(period.months);
  if (!day.ok()) day = day.year() / day.month() / std::chrono::last;
  return sys_days(day) - std::chrono::days(period.days);
}

/// How far the local clock is ahead of UTC at a time.
std::int64_t OffsetAt(std::int64_t seconds, platform::Clock& clock) {
  const platform::CalendarTime local = clock.ToLocal({seconds, 0});
  return SecondsOn(sys_days(DayOf(local)), local) - seconds;
}

}  // namespace

int ModifiedSinceCount() { return static_cast<int>(kPeriods.size()); }

std::string ModifiedSinceText(int index, const text::ProgramTexts& texts) {
  const Period* const period = PeriodAt(index);
  if (period == nullptr) return {};
  std::string text = texts.GetProgramText(period->number);
  const std::size_t digit = text.find('2');
  if (period->months > 2 && digit != std::string::npos) {
    text.replace(digit, 1, std::to_string(period->months));
  }
  return text;
}

std::optional<platform::FileTime> ModifiedSinceLimit(int index, platform::Clock& clock) {
  const Period* const period = PeriodAt(index);
  if (period == nullptr || (period->days == 0 && period->months == 0)) return std::nullopt;
  const platform::FileTime now = clock.Now();
  const platform::CalendarTime local = clock.ToLocal(now);
  const std::int64_t wanted = SecondsOn(DayBefore(DayOf(local), *period), local);
  // The clock may have been changed for summer or winter since then: take the offset of that day.
  const std::int64_t offset = OffsetAt(wanted - OffsetAt(now.seconds, clock), clock);
  return platform::FileTime{wanted - offset, now.nanoseconds};
}

std::string TimeStamp(platform::Clock& clock, platform::Locale& locale) {
  const platform::CalendarTime now = clock.ToLocal(clock.Now());
  std::string stamp = locale.ShortDate(now) + ' ' + locale.TimeOfDay(now);
  std::ranges::replace(stamp, ':', '.');
  return stamp;
}

}  // namespace DatePr2
