#pragma once

#include <string>
#include <string_view>

/// UTF-8 to the UTF-16 of the system's calls and back. File names are any sequence of 16-bit units, also
/// unpaired surrogates, which the system's own conversion would replace: here such a unit becomes the three
/// bytes that UTF-8 would have for it (a form known as WTF-8), so that every name comes back as it was.
namespace platform::windows {

/// Bytes that begin no character each become U+FFFD.
std::wstring Widen(std::string_view text);

std::string Narrow(std::wstring_view text);

}  // namespace platform::windows
