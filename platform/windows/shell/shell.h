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
  /// `command` is a bare name such as "shutdown": the program of that name in the system's own folder is run,
  /// by its full path.
  Status RunSystemCommand(const std::string& command, const std::string& parameters) override;
  /// Guards hold for the thread that asked for them, and go in the reverse order of their making.
  std::unique_ptr<AwakeGuard> KeepAwake() override;
  void EnterRootOfCurrentDrive() override;
};

}  // namespace platform::windows
