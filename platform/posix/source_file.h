#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/posix/file_descriptor.h"

namespace platform::posix {

/// A file that is about to be copied: open, or read already.
struct SourceFile {
  FileDescriptor handle;            ///< none when `content` is there
  struct stat facts = {};           ///< as the file was when it was opened
  Attributes attributes = 0;        ///< all three bits
  std::unique_ptr<char[]> content;  ///< all of the file, facts.st_size bytes; null: still to be read
};

/// Opens the file `name` in the open folder `folder`. Fails on everything but a regular file.
Result<SourceFile> OpenSource(int folder, const std::string& name);

/// Reads the whole content and closes the file. False when the file has more than `limit` bytes, changed its
/// length meanwhile or could not be read: it is then to be opened anew.
bool ReadContent(SourceFile& file, std::size_t limit);

}  // namespace platform::posix
