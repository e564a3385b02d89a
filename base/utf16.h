#pragma once

#include <string>
#include <string_view>

/// UTF-8 to UTF-16 and back, for systems that name files by any sequence of 16-bit units. A surrogate without
/// its partner becomes the three bytes that UTF-8 would have for it (a form known as WTF-8), so every name
/// comes back as it was.
namespace base::utf16 {

/// Character by character, as utf8::First() cuts them: one that is no character, has a shorter form or lies
/// beyond Unicode becomes U+FFFD.
std::u16string FromUtf8(std::string_view text);

std::string ToUtf8(std::u16string_view text);

}  // namespace base::utf16
