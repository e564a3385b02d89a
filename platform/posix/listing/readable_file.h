#pragma once

#include <memory>

#include "platform/content_reader.h"

namespace platform::posix {

/// Opens a file of a PosixFolder; see ContentOpener.
Result<std::unique_ptr<ReadableFile>> OpenToRead(const Folder& folder, const Entry& file);

}  // namespace platform::posix
