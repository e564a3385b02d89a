#pragma once

#include <memory>
#include <string>

#include "platform/content_reader.h"

namespace platform::windows {

/// Opens a file of a WindowsFolder; see ContentOpener. kInUse when another program keeps it to itself.
Result<std::unique_ptr<ReadableFile>> OpenToRead(const Folder& folder, const Entry& file);

/// Opens a file that was just written and flushed, to be read from its disk, past what the system keeps of it
/// in memory, where the volume allows that. A server, or a disk's own cache, cannot be passed by. The path is
/// in the long form; see ReadBack() for the room that reads need.
Result<std::unique_ptr<ReadableFile>> OpenToReadBack(const std::wstring& path);

}  // namespace platform::windows
