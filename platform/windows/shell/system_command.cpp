#include "platform/windows/shell/system_command.h"

#include "platform/windows/windows_api.h"

// After windows_api.h: it needs its types.
#include <shellapi.h>

#include "base/wide_text.h"
#include "platform/windows/system_error.h"

namespace platform::windows {
namespace {

std::wstring SystemFolder() {
  wchar_t buffer[MAX_PATH];
  const UINT length = ::GetSystemDirectoryW(buffer, ARRAYSIZE(buffer));
  return length < ARRAYSIZE(buffer) ? std::wstring(buffer, length) : std::wstring();
}

bool IsBareName(const std::string& command) {
  return !command.empty() && command.find_first_of("\\/:.\"") == std::string::npos;
}

}  // namespace

Status RunSystemCommand(const std::string& command, const std::string& parameters) {
  const std::wstring folder = SystemFolder();
  if (folder.empty() || !IsBareName(command)) return SystemError(ERROR_INVALID_NAME);
  const std::wstring program = folder + L'\\' + base::Widen(command) + L".exe";
  const HINSTANCE answer = ::ShellExecuteW(nullptr, L"open", program.c_str(), base::Widen(parameters).c_str(),
                                           nullptr, SW_SHOWNORMAL);
  // Up to 32 the answer is the number of a failure (shellapi.h).
  constexpr INT_PTR kLastFailure = 32;
  const auto code = reinterpret_cast<INT_PTR>(answer);
  if (code <= kLastFailure) return SystemError(static_cast<DWORD>(code));
  return Done{};
}

}  // namespace platform::windows
