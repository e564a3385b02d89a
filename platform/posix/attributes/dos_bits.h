#pragma once

#include "platform/folder.h"
#include "platform/result.h"

/// The bits "hidden" and "system" of a file on Linux, wherever its volume keeps them.
namespace platform::posix {

enum class DosBitsPlace {
  kUserAttribute,  ///< the extended attribute user.DOSATTRIB, for volumes that know no such bits themselves
  kFat,            ///< FAT and exFAT (this one since Linux 6.8): a call of their drivers
  kNtfs,           ///< system.ntfs_attrib, of both drivers for NTFS
  kServer,         ///< user.cifs.dosattrib: a Windows share keeps them
};

/// Where the volume of an open file or folder keeps them. Not for descriptors of O_PATH, like all of these.
DosBitsPlace PlaceOfDosBits(int file);

/// Both bits of an open file. What cannot be read counts as clear.
Attributes ReadDosBits(int file, DosBitsPlace place);

/// Makes both bits of an open file what `attributes` says of them and leaves the others alone. That takes the
/// right to write to the file, but no descriptor that is open for it. Fails where there is no place for them,
/// and for "system" on NTFS with files of less than two bytes.
Status WriteDosBits(int file, DosBitsPlace place, Attributes attributes);

}  // namespace platform::posix
