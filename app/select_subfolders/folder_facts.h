#pragma once

#include <set>
#include <string>

#include "platform/file_system.h"

namespace app {

/// What a look into a folder tells.
struct FolderContent {
  /// 0; 70: no permission; 76: no such folder; -1: it could not be read for another reason. The counts are
  /// then 0.
  int error = 0;
  int files = 0;
  int subfolders = 0;                    ///< without links and the recycle bin
  std::set<std::string> subfolder_keys;  ///< their names, as FileSystem::NameKey() has them
};

/// Whether a folder's name is that of the recycle bin in the root of a disk, which is listed nowhere. Windows
/// writes it in capitals on some disks and "$Recycle.Bin" on others.
bool IsRecycleBin(const std::string& name);

FolderContent ContentOf(platform::FileSystem& files, const std::string& folder);

/// Whether a folder is a whole disk: by its path, or since another volume is mounted there.
bool IsDisk(platform::FileSystem& files, const std::string& folder);

/// A path without that of its disk.
std::string AfterDisk(platform::FileSystem& files, const std::string& path);

/// Whether a folder holds no file and no subfolder. One that cannot be read counts as empty.
bool IsFolderEmpty(platform::FileSystem& files, const std::string& folder);

}  // namespace app
