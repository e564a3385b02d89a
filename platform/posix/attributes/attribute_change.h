#pragma once

#include "platform/file_system.h"

/// The three attribute bits of a file by its path, links followed.
namespace platform::posix {

Result<Attributes> ReadAttributes(const std::string& path);

/// Fails where hidden or system are asked for and the volume keeps no extended attributes.
Status ChangeAttributes(const std::string& path, Attributes attributes);

}  // namespace platform::posix
