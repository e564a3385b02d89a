#pragma once

#include <string>

#include "platform/posix/file_descriptor.h"
#include "platform/result.h"

namespace platform::posix {

/// A shutdown in a while that can be called off. Without a comment the system gets it, in one minute, its
/// shortest delay, so that it comes also when this program has ended and whatever started it has ended its
/// processes. With one everybody is told the comment and the computer is switched off in 30 seconds: a small
/// shell waits for them, while this program stays open, and goes on waiting when it has ended.
class DelayedShutdown {
 public:
  /// kNotFound when the system has no shutdown command.
  Status Schedule(const std::string& comment);
  /// kOther with nothing pending.
  Status CallOff();

 private:
  Status HandToSystem();
  Status WaitAndShutDown(const std::string& reason);

  bool with_system_ = false;  ///< a shutdown is pending there
  FileDescriptor waiting_;    ///< of the shell's process: unlike a number, it never stands for another one
};

}  // namespace platform::posix
