#pragma once

#include <memory>

#include "platform/content_reader.h"

namespace platform::windows {

/// Opens a file of a WindowsFolder; see ContentOpener. kInUse when another program keeps it to itself.
Result<std::unique_ptr<ReadableFile>> OpenToRead(const Folder& folder, const Entry& file);

}  // namespace platform::windows
