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

/// What a call says into room of this length, in letters with the zero.
template <typename Call>
std::string NameFrom(Call call) {
  wchar_t text[257] = {};
  DWORD length = ARRAYSIZE(text);
  return call(text, &length) ? base::Narrow(text) : std::string();
}

}  // namespace

std::string WindowsShell::ApplicationDataFolder() {
  PIDLIST_ABSOLUTE place = nullptr;
  if (FAILED(::SHGetSpecialFolderLocation(nullptr, CSIDL_APPDATA, &place))) return {};
  wchar_t path[MAX_PATH] = {};
  const BOOL named = ::SHGetPathFromIDListW(place, path);
  ::CoTaskMemFree(place);
  return named ? base::Narrow(path) : std::string();
}

std::string WindowsShell::UserName() { return NameFrom(::GetUserNameW); }

std::string WindowsShell::ComputerName() { return NameFrom(::GetComputerNameW); }

std::uint64_t WindowsShell::ProcessNumber() { return ::GetCurrentProcessId(); }

std::string WindowsShell::ProgramFolder() {
  std::wstring path(kLongestPath, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  return ParentOf(base::Narrow(path), PathStyle::kWindows);
}

Status WindowsShell::ScheduleShutDown(const std::string& comment) {
  return RunSystemCommand("shutdown", comment.empty() ? "/s" : "/s /c \"" + comment + "\"");
}

Status WindowsShell::CallOffShutDown() { return RunSystemCommand("shutdown", "/a"); }

std::unique_ptr<AwakeGuard> WindowsShell::KeepAwake() { return std::make_unique<ExecutionState>(); }

void WindowsShell::EnterRootOfCurrentDrive() { ::SetCurrentDirectoryW(L"\\"); }

}  // namespace platform::windows
