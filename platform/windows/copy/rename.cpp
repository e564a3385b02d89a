#include "platform/windows/copy/rename.h"

#include <atomic>
#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"

namespace platform::windows {
namespace {

// FILE_RENAME_INFORMATION in ntifs.h; not every SDK has the third.
constexpr DWORD kReplaceIfExists = 0x01;
constexpr DWORD kPosixSemantics = 0x02;  ///< also when somebody has the old file open and let it be deleted
constexpr DWORD kIgnoreReadOnly = 0x40;

/// FileRenameInfoEx of minwinbase.h, where the headers of mingw-w64 lack it: Windows 10 version 1607.
constexpr auto kFileRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

/// The ways to rename through a handle, the best first.
enum class Way { kPosix, kPlain, kByPath };

/// Remembered for the next file: asking a system in vain costs a call each time. Another volume may be able
/// to do more; then it only misses the finer points of the first way.
std::atomic<Way> g_way = Way::kPosix;

bool CannotDoThis(DWORD code) {
  return IsOneOf(code, {ERROR_INVALID_PARAMETER, ERROR_CALL_NOT_IMPLEMENTED, ERROR_NOT_SUPPORTED,
                        ERROR_INVALID_FUNCTION});
}

/// 0 or the system's number of the failure.
DWORD RenameByHandle(const FileHandle& file, const std::wstring& to, Way way, TargetName name) {
  const std::size_t name_bytes = to.size() * sizeof(wchar_t);
  const std::size_t bytes = sizeof(FILE_RENAME_INFO) + name_bytes;
  std::vector<std::max_align_t> buffer(bytes / sizeof(std::max_align_t) + 1);
  auto* info = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
  if (name == TargetName::kTaken) {
    if (way == Way::kPosix) {
      info->Flags = kReplaceIfExists | kPosixSemantics | kIgnoreReadOnly;
    } else {
      info->ReplaceIfExists = TRUE;
    }
  }
  info->FileNameLength = static_cast<DWORD>(name_bytes);
  std::memcpy(info->FileName, to.c_str(), name_bytes + sizeof(wchar_t));
  const auto kind = way == Way::kPosix ? kFileRenameInfoEx : FileRenameInfo;
  return ::SetFileInformationByHandle(file.get(), kind, info, static_cast<DWORD>(bytes)) ? 0
                                                                                         : ::GetLastError();
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
