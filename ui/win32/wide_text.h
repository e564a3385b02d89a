#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/wide_text.h"

/// Texts on their way to the system's UTF-16; base::Narrow() is the way back.
namespace ui::win32 {

/// In UTF-16 units, with the zero: the system takes no longer one.
inline constexpr std::size_t kLongestPath = 32'768;

/// Character by character: what is no UTF-8, and a zero, shows as U+FFFD. A surrogate that is alone, as a
/// file name may have it, passes through.
std::wstring ToWide(std::string_view text);

/// A caption as MarkAccessKey() makes it.
std::wstring ToCaption(std::string_view text, char access_key);

/// How many UTF-16 units ToWide() makes of the first characters of a text, and the other way round.
std::size_t UnitsOf(std::string_view text, std::size_t characters);
std::size_t CharactersOf(std::string_view text, std::size_t units);

}  // namespace ui::win32
