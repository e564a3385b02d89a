#pragma once

#include <string_view>

namespace app {

/// The order in which people expect names: without regard to case, and numbers by their value ("folder 2"
/// before "folder 10"). Names that differ in nothing else are ordered by their bytes, so that no two names
/// are equal.
bool ComesBefore(std::string_view a, std::string_view b);

}  // namespace app
