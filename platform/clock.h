#pragma once

#include <chrono>

#include "platform/file_time.h"

namespace platform {

/// Time as the program sees it, so that a test can drive it.
class Clock {
 public:
  virtual ~Clock() = default;

  /// Now, UTC.
  virtual FileTime Now() = 0;

  /// The user's local calendar for a time, daylight saving included.
  virtual CalendarTime ToLocal(FileTime time) = 0;

  /// A time that only runs forward, for measuring how long something took. Its zero means nothing.
  virtual std::chrono::milliseconds Monotonic() = 0;

  /// Holds the calling thread for so long.
  virtual void Sleep(std::chrono::milliseconds duration) = 0;
};

}  // namespace platform
