#pragma once

#include <string>

#include "platform/file_system.h"

/// The volume that holds a path. `path` itself may be missing while its parent exists.
namespace platform::posix {

Result<DiskSpace> SpaceAt(const std::string& path);

/// The most bytes that one file may have there; 0 when no limit is known.
std::int64_t LargestFileAt(const std::string& path);

/// The mount point; empty when it is not known. `path` is without links.
std::string MountPointOf(const std::string& path);

/// Brings everything on the volume of an open folder or file to the disk, and what is in the disk's own
/// cache to its medium.
Status FlushVolume(int file);

/// Brings the names in an open folder to the disk, where its file system can do that for one folder.
Status FlushFolder(int folder);

/// See FileSystem::Flush(); `worker` does it.
Status FlushVolumeOf(const std::string& path, Workers& worker, const IdleCallback& idle);

}  // namespace platform::posix
