#pragma once

#include <string>
#include <string_view>

/// UTF-8 to the UTF-16 of the system's calls and back by base/utf16.h, which keeps the unpaired surrogates of
/// file names; the system's own conversion would replace them.
namespace platform::windows {

/// Bytes that begin no character each become U+FFFD.
std::wstring Widen(std::string_view text);

std::string Narrow(std::wstring_view text);

}  // namespace platform::windows
