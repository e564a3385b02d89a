#include "platform/windows/copy/rename.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/windows/native_api.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"

namespace platform::windows {
namespace {

// FILE_RENAME_INFORMATION in ntifs.h; not every SDK has the third.
constexpr DWORD kReplaceIfExists = 0x01;
constexpr DWORD kPosixSemantics = 0x02;  ///< also when somebody has the old file open and let it be deleted
constexpr DWORD kIgnoreReadOnly = 0x40;

// FILE_INFORMATION_CLASS in wdm.h; the second since Windows 10 version 1607.
constexpr int kFileRenameInformation = 10;
constexpr int kFileRenameInformationEx = 65;

// What SetFileInformationByHandle() makes of FileRenameInfo and its like; Wine knows it under this name only.
using SetInformationFile = LONG(WINAPI*)(HANDLE, IO_STATUS_BLOCK*, void* information, ULONG size, int kind);

constexpr std::wstring_view kLongPrefix = L"\\\\?\\";

/// The ways to rename through a handle, the best first.
enum class Way { kPosix, kPlain, kByPath };

/// Remembered for the next file: asking a system in vain costs a call each time. Another volume may be able
/// to do more; then it only misses the finer points of the first way.
std::atomic<Way> g_way = Way::kPosix;

bool CannotDoThis(DWORD code) {
  return IsOneOf(code, {ERROR_INVALID_PARAMETER, ERROR_CALL_NOT_IMPLEMENTED, ERROR_NOT_SUPPORTED,
                        ERROR_INVALID_FUNCTION});
}

/// `to` is in the long form. 0 or the system's number of the failure.
DWORD RenameByHandle(const FileHandle& file, const std::wstring& to, Way way, TargetName name) {
  static const auto set = FindNative<SetInformationFile>("NtSetInformationFile");
  if (set == nullptr || !to.starts_with(kLongPrefix)) return ERROR_NOT_SUPPORTED;
  const std::wstring native = L"\\??\\" + to.substr(kLongPrefix.size());
  const std::size_t name_bytes = native.size() * sizeof(wchar_t);
  const std::size_t bytes = sizeof(FILE_RENAME_INFO) + name_bytes;
  std::vector<std::uint64_t> buffer(bytes / sizeof(std::uint64_t) + 1);  // zeros, as the root has to be
  auto* info = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
  if (name == TargetName::kTaken) {
    if (way == Way::kPosix) {
      info->Flags = kReplaceIfExists | kPosixSemantics | kIgnoreReadOnly;
    } else {
      info->ReplaceIfExists = TRUE;
    }
  }
  info->FileNameLength = static_cast<DWORD>(name_bytes);
  std::memcpy(info->FileName, native.c_str(), name_bytes + sizeof(wchar_t));
  IO_STATUS_BLOCK status{};
  const int kind = way == Way::kPosix ? kFileRenameInformationEx : kFileRenameInformation;
  return ErrorOfStatus(set(file.get(), &status, info, static_cast<ULONG>(bytes), kind));
}

DWORD RenameByPath(FileHandle& file, const std::wstring& from, const std::wstring& to, TargetName name) {
  file.Reset();
  const DWORD flags = name == TargetName::kTaken ? MOVEFILE_REPLACE_EXISTING : 0;
  return ::MoveFileExW(from.c_str(), to.c_str(), flags) ? 0 : ::GetLastError();
}

bool IsTaken(DWORD code) { return IsOneOf(code, {ERROR_ALREADY_EXISTS, ERROR_FILE_EXISTS}); }

bool IsDecided(DWORD code) { return code == ERROR_SUCCESS || IsTaken(code); }

/// By the best way that works. 0 or the system's number of the failure.
DWORD RenameByBestMethod(FileHandle& file, const std::wstring& from, const std::wstring& to,
                         TargetName name) {
  DWORD code = ERROR_NOT_SUPPORTED;
  if (g_way == Way::kPosix) {
    code = RenameByHandle(file, to, Way::kPosix, name);
    if (CannotDoThis(code)) g_way = Way::kPlain;
  }
  if (!IsDecided(code) && g_way != Way::kByPath) {
    code = RenameByHandle(file, to, Way::kPlain, name);
    if (CannotDoThis(code)) g_way = Way::kByPath;
  }
  return IsDecided(code) ? code : RenameByPath(file, from, to, name);
}

}  // namespace

Status Rename(FileHandle& file, const std::wstring& from, const std::wstring& to, TargetName listed) {
  const DWORD code = RenameByBestMethod(file, from, to, listed);
  if (code == 0) return Done{};
  Error error = FileError(to, code);
  if (IsTaken(code)) error.kind = ErrorKind::kNameTaken;
  return error;
}

}  // namespace platform::windows
