#pragma once

#include <string>
#include <string_view>

namespace app {

/// The letters that a file extension may have: "a" to "z" and 34 accented small letters.
extern const std::string_view kExtensionLetters;

/// The number (from 1) of the first character of a text, at or after the character number `start` (below 1:
/// 1), that does not occur in a set of characters; 0 when there is none or the text is empty; 1 when the set
/// is empty.
int FindFirstNotIn(std::string_view text, int start, std::string_view set);

/// The text without the characters that are neither extension letters nor among `extra` nor (when allowed)
/// spaces. Capital letters are no extension letters.
std::string KeepOnlyCharacters(std::string_view text, bool allow_blank, std::string_view extra);

/// Whether a text that is not empty consists of "*" only.
bool IsOnlyStars(std::string_view text);

}  // namespace app
