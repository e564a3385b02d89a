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

/// What is to be known of a volume whose files are read.
struct SourceVolume {
  bool has_coarse_times = false;
  DosBitsPlace dos_bits = DosBitsPlace::kUserAttribute;
};

/// Takes a file that OpenListed() opened; where that failed, its error is still errno. Fails on everything
/// but a regular file. For a file that was written to within the present tick of the system's clock it waits
/// until that is over (4 ms mostly); where the volume's times are coarser than that, it is told by is_fresh.
Result<SourceFile> ExamineSource(FileDescriptor handle, const SourceVolume& volume);

}  // namespace platform::posix
