#pragma once

#include <memory>
#include <string>

#include "platform/content_reader.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/listing/folder.h"

namespace platform::posix {

/// Opens a file of a PosixFolder for reading, links followed: whatever has taken its place, without waiting
/// for it. Nothing, with errno set, when that fails.
FileDescriptor OpenListed(const PosixFolder& folder, const Entry& file);

/// Has the system begin to read the beginning of a file that OpenListed() opened.
void PrefetchStart(int handle);

/// Opens a file of a PosixFolder; see ContentOpener.
Result<std::unique_ptr<ReadableFile>> OpenToRead(const Folder& folder, const Entry& file);

/// Opens a file in an open folder that was just written and flushed, to be read from its disk: what the
/// system keeps of it in memory is dropped before, and again when the file goes. A volume that is in
/// memory, or a disk's own cache, cannot be passed by.
Result<std::unique_ptr<ReadableFile>> OpenToReadBack(int folder, const std::string& name);

}  // namespace platform::posix
