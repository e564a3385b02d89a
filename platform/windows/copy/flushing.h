#pragma once

#include <string>

#include "platform/result.h"
#include "platform/windows/handle.h"

/// Bringing to the disk what the system keeps in memory. For a file on a volume that knows no flushing this
/// is success.
namespace platform::windows {

/// The volume as a whole, by its name in Volume::device. None when the user may not: as a rule only
/// administrators may.
FileHandle OpenVolume(const std::wstring& device);

/// Returns when all that was written to the volume is on the disk; false when that cannot be had.
bool FlushVolume(const std::wstring& device);

/// FlushFileBuffers(): returns when the file, open for writing, is on the disk, and the disk has emptied its
/// own cache.
Status FlushFully(const FileHandle& file);

/// Hands a file's data to the disk, which may keep them in its own cache until something on the same disk is
/// flushed fully. Where the system cannot part the two, the file is flushed fully.
Status WriteOut(const FileHandle& file);

/// See FileSystem::Flush(): as far as the user's rights go. The path is in the long form, with a separator at
/// its end.
Status FlushVolumeOf(const std::wstring& folder);

}  // namespace platform::windows
