#include "ui/win32/wide_text.h"

#include "base/utf8.h"
#include "ui/caption.h"

namespace ui::win32 {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t code) { return code >= 0xD800 && code < 0xDC00; }
bool IsLowSurrogate(char32_t code) { return code >= 0xDC00 && code < 0xE000; }

/// The code point of one character as base::utf8::First() cuts it.
char32_t Decode(std::string_view character) {
  const auto first = static_cast<unsigned char>(character[0]);
  if (character.size() == 1) return first == 0 || first >= 0x80 ? kReplacement : first;
  char32_t code = first & (0x7FU >> character.size());
  for (const char c : character.substr(1)) code = (code << 6) | (static_cast<unsigned char>(c) & 0x3FU);
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  return code < kLeast[character.size()] || code > 0x10FFFF ? kReplacement : code;
}

std::size_t UnitsOf(char32_t code) { return code > 0xFFFF ? 2 : 1; }

void AppendWide(std::wstring& text, char32_t code) {
  if (UnitsOf(code) == 1) {
    text += static_cast<wchar_t>(code);
    return;
  }
  text += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
  text += static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

void AppendUtf8(std::string& text, char32_t code) {
  const auto more = [code](unsigned shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += {static_cast<char>(0xC0 | (code >> 6)), more(0)};
  } else if (code < 0x10000) {
    text += {static_cast<char>(0xE0 | (code >> 12)), more(6), more(0)};
  } else {
    text += {static_cast<char>(0xF0 | (code >> 18)), more(12), more(6), more(0)};
  }
}

}  // namespace

std::wstring ToWide(std::string_view text) {
  std::wstring result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view character = base::utf8::First(text);
    AppendWide(result, Decode(character));
    text.remove_prefix(character.size());
  }
  return result;
}

std::string FromWide(std::wstring_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    if (IsHighSurrogate(code) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
    }
    AppendUtf8(result, code);
  }
  return result;
}

std::wstring ToCaption(std::string_view text, char access_key) {
  return ToWide(MarkAccessKey(text, access_key));
}

std::size_t UnitsOf(std::string_view text, std::size_t characters) {
  std::size_t units = 0;
  for (; characters > 0 && !text.empty(); --characters) {
    const std::string_view character = base::utf8::First(text);
    units += UnitsOf(Decode(character));
    text.remove_prefix(character.size());
  }
  return units;
}

std::size_t CharactersOf(std::string_view text, std::size_t units) {
  std::size_t characters = 0;
  for (std::size_t passed = 0; passed < units && !text.empty(); ++characters) {
    const std::string_view character = base::utf8::First(text);
    passed += UnitsOf(Decode(character));
    text.remove_prefix(character.size());
  }
  return characters;
}

}  // namespace ui::win32
