#pragma once

#include <span>
#include <string>

#include "platform/file_system.h"

/// Small files read and written at one go; see the calls of these names in FileSystem.
namespace platform::posix {

Result<std::string> ReadWhole(const std::string& path, std::int64_t limit);
Status CreateWhole(const std::string& path, const std::string& content);
Status WriteWhole(const std::string& path, const std::string& content);
Status ReplaceWhole(const std::string& path, const std::string& content);

/// Writes all of them to an open file, from its present position on.
Status WriteAll(int file, std::span<const char> bytes);

}  // namespace platform::posix
