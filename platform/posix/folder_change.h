#pragma once

#include <string>

#include "platform/result.h"

/// Folders made and names changed; see the calls of these names in FileSystem.
namespace platform::posix {

Status MakeFolder(const std::string& path, const std::string& like);
Status Respell(const std::string& folder, const std::string& from, const std::string& to);
Status EndRespelling(const std::string& folder, const std::string& temporary);

}  // namespace platform::posix
