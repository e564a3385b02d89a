#pragma once

#include <sys/stat.h>

#include <string>

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

/// Opens the file `name` in the open folder `folder`. Fails on everything but a regular file. A file that was
/// written to within the present tick of the system's clock is opened when that is over (4 ms mostly); where
/// the volume's times are coarser than that, it is told by is_fresh.
Result<SourceFile> OpenSource(int folder, const std::string& name, const SourceVolume& volume);

}  // namespace platform::posix
