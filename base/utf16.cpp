#include "base/utf16.h"

#include "base/utf8.h"

namespace base::utf16 {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// The code point of one character as utf8::First() cuts it.
char32_t Decode(std::string_view character) {
  const auto first = static_cast<unsigned char>(character[0]);
  if (character.size() == 1) return first < 0x80 ? first : kReplacement;
  char32_t code = first & (0x7FU >> character.size());
  for (const char c : character.substr(1)) code = (code << 6) | (static_cast<unsigned char>(c) & 0x3FU);
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  return code < kLeast[character.size()] || code > 0x10FFFF ? kReplacement : code;
}

void Append(std::u16string& text, char32_t code) {
  if (code < 0x10000) {
    text += static_cast<char16_t>(code);
  } else {
    text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
  }
}

/// A code point beyond ASCII.
void Append(std::string& text, char32_t code) {
  const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
  if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | (code >> 12));
    tail(6);
  } else {
    text += static_cast<char>(0xF0 | (code >> 18));
    tail(12);
    tail(6);
  }
  tail(0);
}

}  // namespace

std::u16string FromUtf8(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view character = utf8::First(text);
    Append(result, Decode(character));
    text.remove_prefix(character.size());
  }
  return result;
}

std::string ToUtf8(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    if (code < 0x80) {
      result += static_cast<char>(code);
      continue;
    }
    if (IsHighSurrogate(code) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00U);
    }
    Append(result, code);
  }
  return result;
}

}  // namespace base::utf16
