#include "platform/file_time.h"

#include <chrono>

namespace platform {

CalendarTime ToUtc(FileTime time) {
  using std::chrono::days;
  using std::chrono::seconds;
  using std::chrono::sys_days;

  const std::chrono::sys_seconds point{seconds{time.seconds}};
  const sys_days day = std::chrono::floor<days>(point);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{point - day};
  const sys_days new_year{date.year() / std::chrono::January / 1};

  CalendarTime result;
  result.year = static_cast<int>(date.year());
  result.month = static_cast<int>(static_cast<unsigned>(date.month()));
  result.day = static_cast<int>(static_cast<unsigned>(date.day()));
  result.hour = static_cast<int>(clock.hours().count());
  result.minute = static_cast<int>(clock.minutes().count());
  result.second = static_cast<int>(clock.seconds().count());
  result.day_of_year = static_cast<int>((day - new_year).count()) + 1;
  return result;
}

}  // namespace platform
