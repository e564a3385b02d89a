#pragma once

#include <string>
#include <string_view>

#include "base/utf16.h"

/// UTF-8 to the wide characters of a system where they are UTF-16, and back. Unpaired surrogates of file
/// names are kept; the system's own conversion would replace them.
namespace base {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "for Windows only");

/// Bytes that are no character each become U+FFFD.
inline std::wstring Widen(std::string_view text) {
  const std::u16string units = utf16::FromUtf8(text);
  return {units.begin(), units.end()};
}

inline std::string Narrow(std::wstring_view text) {
  return utf16::ToUtf8(std::u16string(text.begin(), text.end()));
}

}  // namespace base
