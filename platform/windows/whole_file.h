#pragma once

#include <cstdint>
#include <string>

#include "platform/result.h"

/// Whole small files in one call; see FileSystem::ReadFile() and WriteFile(). Paths are in the long form.
namespace platform::windows {

Result<std::string> ReadContent(const std::wstring& long_path, std::int64_t limit);

/// See FileSystem::WriteNewFile().
Status WriteNewContent(const std::wstring& long_path, const std::string& content);
Status WriteContent(const std::wstring& long_path, const std::string& content);

}  // namespace platform::windows
