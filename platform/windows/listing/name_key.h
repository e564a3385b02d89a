#pragma once

#include <string>

namespace platform::windows {

/// See FileSystem::NameKey().
std::string NameKeyOf(const std::string& name);

}  // namespace platform::windows
