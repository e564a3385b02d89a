#pragma once

#include <string>
#include <vector>

#include "platform/posix/file_descriptor.h"
#include "platform/result.h"

namespace platform::posix {

/// The "shutdown" of Windows, done with that of Linux: "/s" switches the computer off in 30 seconds, `/c
/// "text"` gives the reason that is told to everybody, "/a" calls it off. Linux itself counts in whole
/// minutes, so a small shell waits first; it goes on waiting when this program has ended.
class DelayedShutdown {
 public:
  /// The switches as words. kNotFound when the system has no shutdown command, kOther for "/a" with nothing
  /// pending.
  Status Run(const std::vector<std::string>& switches);

 private:
  Status Begin(const std::string& reason);
  Status CallOff();

  FileDescriptor waiting_;  ///< of the shell's process: unlike a number, it never stands for another one
};

}  // namespace platform::posix
