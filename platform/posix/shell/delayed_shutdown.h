#pragma once

#include <string>
#include <vector>

#include "platform/posix/file_descriptor.h"
#include "platform/result.h"

namespace platform::posix {

/// The "shutdown" of Windows, done with that of Linux. "/s" hands the system a shutdown in one minute, its
/// shortest delay, so that it comes also when this program has ended and whatever started it has ended its
/// processes. `/s /c "text"` tells everybody the reason and switches the computer off in 30 seconds: a small
/// shell waits for them, while this program stays open, and goes on waiting when it has ended. "/a" calls
/// either off.
class DelayedShutdown {
 public:
  /// The switches as words. kNotFound when the system has no shutdown command, kOther for "/a" with nothing
  /// pending.
  Status Run(const std::vector<std::string>& switches);

 private:
  Status HandToSystem();
  Status WaitAndShutDown(const std::string& reason);
  Status CallOff();

  bool with_system_ = false;  ///< a shutdown is pending there
  FileDescriptor waiting_;    ///< of the shell's process: unlike a number, it never stands for another one
};

}  // namespace platform::posix
