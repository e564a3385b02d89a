#pragma once

#include "platform/shell.h"

namespace platform::windows {

/// The user's session on Windows.
class WindowsShell : public Shell {
 public:
  std::string ApplicationDataFolder() override;
  std::string UserName() override;
  std::string ComputerName() override;
  std::uint64_t ProcessNumber() override;
  std::string ProgramFolder() override;
  /// By the command's switches "/s", "/c" and "/a".
  Status ScheduleShutDown(const std::string& comment) override;
  Status CallOffShutDown() override;
  /// Guards hold for the thread that asked for them, and go in the reverse order of their making.
  std::unique_ptr<AwakeGuard> KeepAwake() override;
  void EnterRootOfCurrentDrive() override;
};

}  // namespace platform::windows
