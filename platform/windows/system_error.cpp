#include "platform/windows/system_error.h"

#include <string_view>

#include "base/wide_text.h"
#include "platform/windows/handle.h"

namespace platform::windows {
namespace {

/// The numbers are those of winerror.h.
ErrorKind KindOf(DWORD code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
      return ErrorKind::kNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return ErrorKind::kAccessDenied;
    case ERROR_WRITE_PROTECT:
      return ErrorKind::kReadOnlyMedium;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return ErrorKind::kDiskFull;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return ErrorKind::kAlreadyExists;
    case ERROR_DIRECTORY:
      return ErrorKind::kNotAFolder;
    case kDirectoryNotSupported:
      return ErrorKind::kIsAFolder;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
      return ErrorKind::kInUse;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
      return ErrorKind::kBadName;
    case ERROR_FILE_TOO_LARGE:
    case kFileSystemLimitation:
      return ErrorKind::kTooLarge;
    case ERROR_HANDLE_EOF:
      return ErrorKind::kShort;
    case ERROR_FILE_CORRUPT:
    case ERROR_DISK_CORRUPT:
      return ErrorKind::kDamaged;
    case ERROR_TOO_MANY_OPEN_FILES:
      return ErrorKind::kTooManyOpen;
    case ERROR_REQUEST_ABORTED:
    case ERROR_CANCELLED:
      return ErrorKind::kCancelled;
    default:
      return ErrorKind::kOther;
  }
}

bool IsHeldByAnother(const std::wstring& long_path) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const FileHandle file(::CreateFileW(long_path.c_str(), GENERIC_WRITE | DELETE, kShareAll, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
  return !file && ::GetLastError() == ERROR_SHARING_VIOLATION;
}

}  // namespace

std::string SystemText(DWORD code) {
  wchar_t buffer[1024];
  const DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, buffer, ARRAYSIZE(buffer), nullptr);
  const std::wstring_view text(buffer, length);
  const std::size_t last = text.find_last_not_of(L"\r\n ");
  return last == std::wstring_view::npos ? std::string() : base::Narrow(text.substr(0, last + 1));
}

Error SystemError(DWORD code) { return {KindOf(code), static_cast<int>(code), SystemText(code)}; }

Error LastError() { return SystemError(::GetLastError()); }

Error FileError(const std::wstring& long_path, DWORD code) {
  Error error = SystemError(code);
  if (error.kind != ErrorKind::kAccessDenied && error.kind != ErrorKind::kAlreadyExists) return error;
  const DWORD attributes = ::GetFileAttributesW(long_path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return error;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return SystemError(kDirectoryNotSupported);
  if (IsHeldByAnother(long_path)) return SystemError(ERROR_SHARING_VIOLATION);
  return error;
}

}  // namespace platform::windows
