#pragma once

#include <cstdint>

#include "platform/file_time.h"
#include "platform/windows/windows_api.h"

/// The system counts time in steps of 100 ns from 1601-01-01, UTC.
namespace platform::windows {

inline constexpr std::int64_t kTicksPerSecond = 10'000'000;
inline constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;

inline std::int64_t TicksOf(FILETIME time) {
  return (std::int64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime;
}

/// Ticks are never negative.
inline FileTime FromTicks(std::int64_t ticks) {
  return {ticks / kTicksPerSecond - kSecondsFrom1601To1970,
          static_cast<std::int32_t>(ticks % kTicksPerSecond) * 100};
}

inline FILETIME SystemTime() {
  FILETIME now;
  ::GetSystemTimeAsFileTime(&now);
  return now;
}

inline FILETIME ToSystem(FileTime time) {
  const std::int64_t ticks =
      (time.seconds + kSecondsFrom1601To1970) * kTicksPerSecond + time.nanoseconds / 100;
  return {static_cast<DWORD>(ticks & 0xFFFFFFFF), static_cast<DWORD>(ticks >> 32)};
}

}  // namespace platform::windows
