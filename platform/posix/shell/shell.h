#pragma once

#include "platform/posix/shell/delayed_shutdown.h"
#include "platform/shell.h"

namespace platform::posix {

/// The user's session on Linux. Keeping awake takes systemd-inhibit; without it the guard does nothing.
class PosixShell : public Shell {
 public:
  std::string ApplicationDataFolder() override;
  std::string UserName() override;
  std::string ComputerName() override;
  std::uint64_t ProcessNumber() override;
  std::string ProgramFolder() override;
  Status ScheduleShutDown(const std::string& comment) override { return shutdown_.Schedule(comment); }
  Status CallOffShutDown() override { return shutdown_.CallOff(); }
  std::unique_ptr<AwakeGuard> KeepAwake() override;
  void EnterRootOfCurrentDrive() override;

 private:
  DelayedShutdown shutdown_;
};

}  // namespace platform::posix
