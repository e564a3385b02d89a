#pragma once

#include "platform/clock.h"

namespace platform::posix {

/// The system's clock and the time zone of the environment.
class PosixClock : public Clock {
 public:
  PosixClock();
  FileTime Now() override;
  CalendarTime ToLocal(FileTime time) override;
  std::chrono::milliseconds Monotonic() override;
  void Sleep(std::chrono::milliseconds duration) override;
};

}  // namespace platform::posix
