#include "platform/windows/wide_text.h"

#include <cstdint>

#include "base/utf8.h"

namespace platform::windows {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;

bool IsHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// The code point of a character of two bytes or more.
std::uint32_t Decode(std::string_view character) {
  std::uint32_t code = static_cast<unsigned char>(character[0]) & (0xFFU >> (character.size() + 1));
  for (const char c : character.substr(1)) code = (code << 6) | (static_cast<unsigned char>(c) & 0x3FU);
  return code;
}

/// Forms that a shorter one exists for, and numbers beyond Unicode.
bool IsMalformed(std::string_view character, std::uint32_t code) {
  return code > 0x10FFFF || (character.size() == 3 && code < 0x800) ||
         (character.size() == 4 && code < 0x10000);
}

void AppendWide(std::wstring& text, std::uint32_t code) {
  if (code < 0x10000) {
    text += static_cast<wchar_t>(code);
  } else {
    text += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
  }
}

void AppendBytes(std::string& text, std::uint32_t code) {
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

std::wstring Widen(std::string_view text) {
  std::wstring result;
  result.reserve(text.size());
  while (!text.empty()) {
    if (const auto first = static_cast<unsigned char>(text[0]); first < 0x80) {
      result += static_cast<wchar_t>(first);
      text.remove_prefix(1);
      continue;
    }
    const std::string_view character = base::utf8::First(text);
    const std::uint32_t code = character.size() > 1 ? Decode(character) : kReplacement;
    AppendWide(result, IsMalformed(character, code) ? kReplacement : code);
    text.remove_prefix(character.size());
  }
  return result;
}

std::string Narrow(std::wstring_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t code = text[i];
    if (code < 0x80) {
      result += static_cast<char>(code);
      continue;
    }
    if (IsHighSurrogate(code) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00U);
    }
    AppendBytes(result, code);
  }
  return result;
}

}  // namespace platform::windows
