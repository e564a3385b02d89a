#pragma once

#include <sys/stat.h>

#include "platform/copier.h"
#include "platform/posix/attributes/dos_bits.h"
#include "platform/posix/file_descriptor.h"

namespace platform::posix {

/// A file that is about to be copied, open for reading.
struct SourceFile {
  FileDescriptor handle;
  struct stat facts = {};     ///< as the file was when it was opened
  Attributes attributes = 0;  ///< all three bits
  /// It was written to so shortly before that one more write might leave its time as it is.
  bool is_fresh = false;
};

/// Takes a file that OpenListed() opened; where that failed, its error is still errno. Fails on everything
/// but a regular file. For a file that was written to within the present tick of the system's clock it waits
/// until that is over (4 ms mostly). Where the volume seems to keep times in coarser steps, of 10 ms as exFAT
/// does or of one or two seconds as ext with small inodes and FAT do, is_fresh says so instead.
Result<SourceFile> ExamineSource(FileDescriptor handle, DosBitsPlace dos_bits);

}  // namespace platform::posix
