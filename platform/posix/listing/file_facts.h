#pragma once

#include <sys/stat.h>

#include "platform/file_system.h"

/// What the system's stat structure says, in the program's terms.
namespace platform::posix {

FileTime ModifiedOf(const struct stat& facts);

/// The read-only bit; hidden and system are not in the structure.
Attributes AttributesOf(const struct stat& facts);

/// Fills kind, size, modified and attributes of `entry` for what has `name` in the open folder
/// `folder` (or AT_FDCWD). `type` is one of the DT_ values of dirent.h as far as it is known; folders and
/// devices cost no call then. False, with errno set and the entry a file of unknown size, when that cannot be
/// told.
bool FillEntry(int folder, const char* name, unsigned char type, Entry& entry);

}  // namespace platform::posix
