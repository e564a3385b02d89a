#pragma once

#include <string>
#include <string_view>

namespace base {

/// A to Z made small; every other byte is left alone, whatever the locale.
constexpr char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

inline std::string LowerAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = LowerAscii(c);
  return result;
}

}  // namespace base
