#pragma once

#include "platform/posix/shell/delayed_shutdown.h"
#include "platform/shell.h"

namespace platform::posix {

/// The user's session on Linux. Keeping awake takes systemd-inhibit; without it the guard does nothing. The
/// command "shutdown" understands the switches of Windows.
class PosixShell : public Shell {
 public:
  std::string ApplicationDataFolder() override;
  std::string UserName() override;
  std::string ComputerName() override;
  std::uint64_t ProcessNumber() override;
  std::string ProgramFolder() override;
  Status RunSystemCommand(const std::string& command, const std::string& parameters) override;
  std::unique_ptr<AwakeGuard> KeepAwake() override;
  void EnterRootOfCurrentDrive() override;

 private:
  DelayedShutdown shutdown_;
};

}  // namespace platform::posix
