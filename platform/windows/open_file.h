#pragma once

#include <string>

#include "platform/result.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// Other programs may go on reading, writing, renaming and deleting the file meanwhile.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens what stands at a path, links followed, for its data about itself only; folders too. None on failure.
FileHandle OpenForAttributes(const std::wstring& long_path, DWORD access = FILE_READ_ATTRIBUTES);

/// The same without following a link that stands at the path itself.
FileHandle OpenLinkForAttributes(const std::wstring& long_path);

/// The path of an open file without links and short names, in the form that the flags of
/// GetFinalPathNameByHandleW() say. Empty on failure.
std::wstring FinalPath(const FileHandle& file, DWORD flags);

/// Times and attribute bits of an open file.
Result<FILE_BASIC_INFO> BasicInfo(const FileHandle& file);

}  // namespace platform::windows
