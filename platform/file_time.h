#pragma once

#include <compare>
#include <cstdint>

namespace platform {

/// A point in time, UTC: whole seconds since 1970-01-01 (negative before) and nanoseconds 0 to 999,999,999.
/// Two numbers rather than one count of nanoseconds, which would end in the year 2262.
struct FileTime {
  std::int64_t seconds = 0;
  std::int32_t nanoseconds = 0;

  auto operator<=>(const FileTime&) const = default;
};

/// A point in time as a calendar and a clock on the wall show it.
struct CalendarTime {
  int year = 1970;
  int month = 1;        ///< 1 to 12
  int day = 1;          ///< 1 to 31
  int hour = 0;         ///< 0 to 23
  int minute = 0;       ///< 0 to 59
  int second = 0;       ///< 0 to 59
  int day_of_year = 1;  ///< 1 to 366

  auto operator<=>(const CalendarTime&) const = default;
};

/// The calendar of UTC for a time.
CalendarTime ToUtc(FileTime time);

}  // namespace platform
