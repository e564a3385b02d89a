#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>

#include "platform/result.h"
#include "platform/windows/windows_api.h"

namespace platform::windows {

/// Numbers of winerror.h that not every set of headers has.
inline constexpr DWORD kDirectoryNotSupported = 336;
inline constexpr DWORD kFileSystemLimitation = 665;
inline constexpr DWORD kDiskQuotaExceeded = 1295;

inline bool IsOneOf(DWORD code, std::initializer_list<DWORD> codes) {
  return std::ranges::find(codes, code) != codes.end();
}

/// The system's text for one of its error numbers: UTF-8 in the user's language, without a line end; empty
/// for a number that the system does not know.
std::string SystemText(DWORD code);

/// The failure that a system call told by this number.
Error SystemError(DWORD code);

/// The failure of the last system call of this thread.
Error LastError();

/// Like SystemError(), for a call on a file where only "access denied" may have come back: a folder that
/// has the name gives kIsAFolder, a file that another program holds open kInUse.
Error FileError(const std::wstring& long_path, DWORD code);

}  // namespace platform::windows
