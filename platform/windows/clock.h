#pragma once

#include "platform/clock.h"

namespace platform::windows {

/// The system's clock. Local times follow the user's time zone with the daylight-saving rules of the year in
/// question.
class WindowsClock : public Clock {
 public:
  FileTime Now() override;
  CalendarTime ToLocal(FileTime time) override;
  std::chrono::milliseconds Monotonic() override;
  void Sleep(std::chrono::milliseconds duration) override;
};

}  // namespace platform::windows
