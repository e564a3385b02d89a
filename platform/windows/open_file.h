#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/folder.h"
#include "platform/result.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// Other programs may go on reading, writing, renaming and deleting the file meanwhile.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens what is at a path, links followed, for its data about itself only; folders too. None on failure.
FileHandle OpenForAttributes(const std::wstring& long_path, DWORD access = FILE_READ_ATTRIBUTES);

/// The same without following a link at the path itself.
FileHandle OpenLinkForAttributes(const std::wstring& long_path, DWORD access = FILE_READ_ATTRIBUTES);

/// The path of an open file without links and short names, in the form that the flags of
/// GetFinalPathNameByHandleW() say. Empty on failure.
std::wstring FinalPath(const FileHandle& file, DWORD flags);

/// The number of a file on its volume, from what the system knows of it.
std::uint64_t NumberOf(const BY_HANDLE_FILE_INFORMATION& info);

/// The open file or folder by its volume's serial number and its own; empty where the volume has none.
std::optional<Identity> IdentityOf(const FileHandle& file);

/// Times and attribute bits of an open file.
Result<FILE_BASIC_INFO> BasicInfo(const FileHandle& file);

}  // namespace platform::windows
