#pragma once

#include <string>
#include <vector>

#include "platform/windows/handle.h"

namespace platform::windows {

/// What a volume is, as far as copies to it and from it go. What is not known is as in the defaults.
struct Volume {
  bool is_remote = false;     ///< on a server
  bool is_journaled = false;  ///< NTFS, ReFS: names reach the disk in the order in which they were given
  bool is_fat = false;        ///< of the FAT family (not exFAT): keeps times in steps of two seconds
  DWORD number = 0;           ///< its serial number
  /// The name by which it can be opened as a whole ("\\?\Volume{...}"); empty when it has none.
  std::wstring device;
};

/// The volume of a folder (long form), links followed.
Volume VolumeOf(const std::wstring& folder);

/// The serial number of an open file's volume; 0 when it is not known.
DWORD VolumeNumberOf(const FileHandle& file);

/// The numbers of the physical disks on which a folder's (long form) volume lies; empty when that cannot be
/// told.
std::vector<std::string> DisksOfVolume(const std::wstring& folder);

/// Whether a folder (long form) is on a volume of the FAT family (not exFAT). The folder may be missing.
/// False when that is not known.
bool IsOnFat(const std::wstring& folder);

}  // namespace platform::windows
