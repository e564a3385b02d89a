#pragma once

#include <string>
#include <string_view>

namespace platform {

/// `text` with the letters A to Z made small and every other byte left alone.
inline std::string LowerAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return result;
}

}  // namespace platform
