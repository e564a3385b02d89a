#include "platform/posix/clock.h"

#include <time.h>

#include <thread>

namespace platform::posix {

// localtime_r() need not read the time zone itself.
PosixClock::PosixClock() { tzset(); }

FileTime PosixClock::Now() {
  struct timespec now = {};
  clock_gettime(CLOCK_REALTIME, &now);
  return {now.tv_sec, static_cast<std::int32_t>(now.tv_nsec)};
}

CalendarTime PosixClock::ToLocal(FileTime time) {
  const time_t seconds = time.seconds;
  struct tm local = {};
  if (localtime_r(&seconds, &local) == nullptr) return ToUtc(time);
  CalendarTime result;
  result.year = local.tm_year + 1900;
  result.month = local.tm_mon + 1;
  result.day = local.tm_mday;
  result.hour = local.tm_hour;
  result.minute = local.tm_min;
  result.second = local.tm_sec < 60 ? local.tm_sec : 59;  // 60 in a leap second
  result.day_of_year = local.tm_yday + 1;
  return result;
}

std::chrono::milliseconds PosixClock::Monotonic() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now);
}

void PosixClock::Sleep(std::chrono::milliseconds duration) { std::this_thread::sleep_for(duration); }

}  // namespace platform::posix
