#include "platform/windows/clock.h"

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_time.h"

namespace platform::windows {
namespace {

FILETIME ToFileTime(const SYSTEMTIME& calendar) {
  FILETIME result{};
  ::SystemTimeToFileTime(&calendar, &result);
  return result;
}

}  // namespace

FileTime WindowsClock::Now() {
  FILETIME now;
  ::GetSystemTimePreciseAsFileTime(&now);
  return FromTicks(TicksOf(now));
}

CalendarTime WindowsClock::ToLocal(FileTime time) {
  const FILETIME ticks = ToSystem(time);
  SYSTEMTIME utc;
  SYSTEMTIME local;
  TIME_ZONE_INFORMATION zone;
  if (!::FileTimeToSystemTime(&ticks, &utc) || !::GetTimeZoneInformationForYear(utc.wYear, nullptr, &zone) ||
      !::SystemTimeToTzSpecificLocalTime(&zone, &utc, &local)) {
    return ToUtc(time);
  }
  // As if the local time were UTC: the calendar is the same for both, and the day of the year comes with it.
  return ToUtc(FromTicks(TicksOf(ToFileTime(local))));
}

std::chrono::milliseconds WindowsClock::Monotonic() {
  return std::chrono::milliseconds(static_cast<std::int64_t>(::GetTickCount64()));
}

void WindowsClock::Sleep(std::chrono::milliseconds duration) {
  ::Sleep(static_cast<DWORD>(duration.count()));
}

}  // namespace platform::windows
