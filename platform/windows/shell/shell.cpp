#include "platform/windows/shell/shell.h"

#include "platform/windows/windows_api.h"

// After windows_api.h: these headers need its types.
#include <objbase.h>
#include <shlobj.h>

#include "base/wide_text.h"
#include "platform/path.h"
#include "platform/windows/shell/system_command.h"

namespace platform::windows {
namespace {

class ExecutionState : public AwakeGuard {
 public:
  ExecutionState() : before_(::SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED)) {}
  ~ExecutionState() override { ::SetThreadExecutionState(before_ | ES_CONTINUOUS); }
  ExecutionState(const ExecutionState&) = delete;
  ExecutionState& operator=(const ExecutionState&) = delete;

 private:
  EXECUTION_STATE before_;
};

}  // namespace

std::string WindowsShell::ApplicationDataFolder() {
  PIDLIST_ABSOLUTE place = nullptr;
  if (FAILED(::SHGetSpecialFolderLocation(nullptr, CSIDL_APPDATA, &place))) return {};
  wchar_t path[MAX_PATH] = {};
  const BOOL named = ::SHGetPathFromIDListW(place, path);
  ::CoTaskMemFree(place);
  return named ? base::Narrow(path) : std::string();
}

std::string WindowsShell::UserName() {
  constexpr DWORD kLongest = 257;  // with its zero
  wchar_t name[kLongest] = {};
  DWORD length = kLongest;
  return ::GetUserNameW(name, &length) ? base::Narrow(name) : std::string();
}

std::string WindowsShell::ComputerName() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
  DWORD length = ARRAYSIZE(name);
  return ::GetComputerNameW(name, &length) ? base::Narrow(name) : std::string();
}

std::uint64_t WindowsShell::ProcessNumber() { return ::GetCurrentProcessId(); }

std::string WindowsShell::ProgramFolder() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return ParentOf(base::Narrow({path.data(), length}), PathStyle::kWindows);
    path.resize(path.size() * 2);
  }
}

Status WindowsShell::ScheduleShutDown(const std::string& comment) {
  return RunSystemCommand("shutdown", comment.empty() ? "/s" : "/s /c \"" + comment + "\"");
}

Status WindowsShell::CallOffShutDown() { return RunSystemCommand("shutdown", "/a"); }

std::unique_ptr<AwakeGuard> WindowsShell::KeepAwake() { return std::make_unique<ExecutionState>(); }

void WindowsShell::EnterRootOfCurrentDrive() { ::SetCurrentDirectoryW(L"\\"); }

}  // namespace platform::windows
