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

/// Reads on, less than 4 GiB; fewer bytes than asked for only at the file's end.
Result<std::size_t> ReadSome(const FileHandle& file, char* room, std::size_t size);

/// Less than 4 GiB. kDiskFull when not all could be written.
Status WriteAll(const FileHandle& file, const char* data, std::size_t size);

/// The path of an open file without links and short names, in the form that the flags of
/// GetFinalPathNameByHandleW() say. Empty on failure.
std::wstring FinalPath(const FileHandle& file, DWORD flags);

/// What the system knows of an open file; nothing but zeros on failure, also where no file is open.
BY_HANDLE_FILE_INFORMATION InfoOf(const FileHandle& file);

/// The number of a file on its volume, from what the system knows of it.
std::uint64_t NumberOf(const BY_HANDLE_FILE_INFORMATION& info);

/// The file or folder by its volume's serial number and its own; empty where the volume has none.
std::optional<Identity> IdentityOf(const BY_HANDLE_FILE_INFORMATION& info);

/// Times and attribute bits of an open file.
Result<FILE_BASIC_INFO> BasicInfo(const FileHandle& file);

}  // namespace platform::windows
