#pragma once

#include <string>
#include <string_view>

namespace engine {

/// The form in which texts are compared without regard to case: lower-cased, with "\" turned into "/".
std::string NormaliseForMatch(std::string_view text);

/// Whether a text fits a pattern: "?" is exactly one character, "*" any run of characters, also an empty one;
/// every other character is itself. Without case sensitivity both are compared in the form of
/// NormaliseForMatch().
bool WildcardMatch(std::string_view text, std::string_view pattern, bool case_sensitive);

}  // namespace engine
