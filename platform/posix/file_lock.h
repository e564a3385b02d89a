#pragma once

#include <memory>
#include <string>

#include "platform/file_lock.h"
#include "platform/result.h"

namespace platform::posix {

/// As FileSystem::Lock().
Result<std::unique_ptr<FileLock>> LockAt(const std::string& path, const std::string& content);

}  // namespace platform::posix
