#include "base/utf8.h"

#include "base/ascii_case.h"

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

/// The code point of a character of two bytes (the only ones whose case is changed here besides ASCII).
unsigned DecodeTwo(std::string_view character) {
  return (static_cast<unsigned>(static_cast<unsigned char>(character[0]) & 0x1F) << 6) |
         (static_cast<unsigned char>(character[1]) & 0x3F);
}

void AppendTwo(std::string& text, unsigned code) {
  text += static_cast<char>(0xC0 | (code >> 6));
  text += static_cast<char>(0x80 | (code & 0x3F));
}

bool IsEvenUpper(unsigned c) {
  return (c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177) ||
         (c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF);
}

bool IsOddUpper(unsigned c) { return (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E); }

/// The lower case of a code point below 0x800 (Unicode's UnicodeData.txt, simple mappings).
unsigned LowerOf(unsigned c) {
  if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9 && c != 0x3A2)) return c + 0x20;
  if (c >= 0x410 && c <= 0x42F) return c + 0x20;
  if (c >= 0x400 && c <= 0x40F) return c + 0x50;
  if (c == 0x178) return 0xFF;
  if (IsEvenUpper(c)) return c | 1U;
  if (IsOddUpper(c) && (c & 1U) != 0) return c + 1;
  return c;
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
    if (character.size() == 1) {
      result += LowerAscii(character[0]);
    } else if (character.size() == 2) {
      AppendTwo(result, LowerOf(DecodeTwo(character)));
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
