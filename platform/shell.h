#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/result.h"

namespace platform {

/// While it lives, the computer does not go to sleep by itself.
class AwakeGuard {
 public:
  virtual ~AwakeGuard() = default;
};

/// What the program asks of the user's session.
class Shell {
 public:
  virtual ~Shell() = default;

  /// The folder in which programs keep the current user's settings: the roaming application data on Windows,
  /// XDG_CONFIG_HOME (or ~/.config) on Linux. Empty when the system names none.
  virtual std::string ApplicationDataFolder() = 0;

  /// The name under which the current user is known to the system; empty when it is not known.
  virtual std::string UserName() = 0;

  /// The name of this computer in its network; empty when it is not known.
  virtual std::string ComputerName() = 0;

  /// The number by which the system knows the running program.
  virtual std::uint64_t ProcessNumber() = 0;

  /// The folder in which the running program's file lies.
  virtual std::string ProgramFolder() = 0;

  /// Has the system's own shutdown command switch the computer off, after about 30 seconds on Windows. Never
  /// runs a program of that name that is beside this one, in the current folder or in the user's search path.
  /// On Linux it comes after 30 seconds with a `comment`, which is told to everybody at the computer, and can
  /// be called off as long; without one after a minute, and also when this program has ended.
  virtual Status ScheduleShutDown(const std::string& comment) = 0;

  /// Calls off the shutdown that was scheduled last. Does not wait for it to take effect.
  virtual Status CallOffShutDown() = 0;

  /// Keeps the computer awake until the guard goes. Where the system cannot, the guard does nothing.
  virtual std::unique_ptr<AwakeGuard> KeepAwake() = 0;

  /// Makes the root of the current drive the current folder.
  virtual void EnterRootOfCurrentDrive() = 0;
};

}  // namespace platform
