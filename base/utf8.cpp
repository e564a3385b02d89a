#include "base/utf8.h"

#include "base/ascii_case.h"
#include "base/letter_case.h"

namespace base::utf8 {
namespace {

/// The number of bytes that a character has by its first byte; 1 for a byte that cannot begin one.
std::size_t ExpectedBytes(unsigned char first) {
  if (first >= 0xF0 && first < 0xF5) return 4;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xC2 && first < 0xE0) return 2;
  return 1;
}

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// The code point of a character of two bytes or more.
char32_t Decode(std::string_view character) {
  const unsigned kept = 0x7FU >> character.size();
  char32_t code = static_cast<unsigned char>(character[0]) & kept;
  for (const char c : character.substr(1)) code = (code << 6) | (static_cast<unsigned char>(c) & 0x3FU);
  return code;
}

void Append(std::string& text, char32_t code) {
  const auto byte = [&](char32_t value) { text += static_cast<char>(value); };
  const auto follow = [&](int shift) { byte(0x80 | ((code >> shift) & 0x3F)); };
  if (code < 0x80) return byte(code);
  if (code < 0x800) {
    byte(0xC0 | (code >> 6));
  } else if (code < 0x10000) {
    byte(0xE0 | (code >> 12));
    follow(6);
  } else {
    byte(0xF0 | (code >> 18));
    follow(12);
    follow(6);
  }
  follow(0);
}

void AppendPrintableByte(std::string& text, unsigned char byte) {
  constexpr std::string_view kHex = "0123456789abcdef";
  if (byte == '\n') {
    text += "\\n";
  } else if (byte == '\t') {
    text += "\\t";
  } else if (byte < 0x20 || byte == 0x7F) {
    text += "\\x";
    text += kHex[byte >> 4];
    text += kHex[byte & 0xF];
  } else if (byte >= 0x80) {
    text += "\xEF\xBF\xBD";
  } else {
    text += static_cast<char>(byte);
  }
}

/// A control character above ASCII, one that ends a line, or a mark that turns the direction in which the
/// characters after it are read: a name could pretend to be another. 0 for any other character.
unsigned HiddenCharacter(std::string_view character) {
  const auto byte = [character](std::size_t i) { return static_cast<unsigned char>(character[i]); };
  if (character.size() == 2 && byte(0) == 0xC2 && byte(1) < 0xA0) return byte(1);
  if (character.size() != 3 || byte(0) != 0xE2 || (byte(1) != 0x80 && byte(1) != 0x81)) return 0;
  const unsigned code = 0x2000U | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU);
  const bool hidden = (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
  return hidden ? code : 0;
}

void AppendHidden(std::string& text, unsigned code) {
  constexpr std::string_view kHex = "0123456789abcdef";
  text += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) text += kHex[code >> shift & 0xFU];
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  return text;
}

std::string_view First(std::string_view text) {
  if (text.empty()) return text;
  const std::size_t wanted = ExpectedBytes(static_cast<unsigned char>(text[0]));
  if (wanted > text.size()) return text.substr(0, 1);
  for (std::size_t i = 1; i < wanted; ++i) {
    if (!IsContinuation(text[i])) return text.substr(0, 1);
  }
  return text.substr(0, wanted);
}

std::size_t Length(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(First(text).size());
  return count;
}

std::size_t OffsetOf(std::string_view text, std::size_t character) {
  std::size_t offset = 0;
  for (; character > 0 && offset < text.size(); --character) offset += First(text.substr(offset)).size();
  return offset;
}

std::string ToLower(std::string_view text) {
  // Every path that is held against a pattern comes here, and most are of ASCII from end to end.
  std::string result(text);
  std::size_t done = 0;
  for (; done < text.size() && static_cast<unsigned char>(text[done]) < 0x80; ++done) {
    result[done] = LowerAscii(text[done]);
  }
  result.resize(done);
  text.remove_prefix(done);
  while (!text.empty()) {
    const std::string_view character = First(text);
    const char32_t code = character.size() > 1 ? Decode(character) : 0;
    const char32_t lower = code != 0 ? LowerOf(code) : 0;
    if (character.size() == 1) {
      result += LowerAscii(character[0]);
    } else if (lower != code) {
      Append(result, lower);
    } else {
      result += character;
    }
    text.remove_prefix(character.size());
  }
  return result;
}

std::string ToUpper(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 0x20);
  }
  return result;
}

std::string Printable(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view character = First(text);
    if (const unsigned hidden = HiddenCharacter(character); hidden != 0) {
      AppendHidden(result, hidden);
    } else if (character.size() > 1) {
      result += character;
    } else {
      AppendPrintableByte(result, static_cast<unsigned char>(character[0]));
    }
    text.remove_prefix(character.size());
  }
  return result;
}

}  // namespace base::utf8
