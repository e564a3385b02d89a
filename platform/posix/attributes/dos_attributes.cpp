#include "platform/posix/attributes/dos_attributes.h"

#include <array>
#include <charconv>

namespace platform::posix {
namespace {

constexpr Attributes kKept = kHidden | kSystem;

// The binary form, little endian: an empty text and its padding (2 bytes), the version (2), the version again
// (4), which fields are valid (4, bit 0: the attributes), the attributes (4), and more.
constexpr std::size_t kVersionAt = 2;
constexpr std::size_t kValidAt = 8;
constexpr std::size_t kBitsAt = 12;
constexpr std::size_t kShortestBinary = 16;

unsigned ByteAt(std::string_view value, std::size_t at) { return static_cast<unsigned char>(value[at]); }

bool IsBinary(std::string_view value) {
  if (value.size() < kShortestBinary || value[0] != 0) return false;
  const unsigned version = ByteAt(value, kVersionAt);
  return (version == 4 || version == 5) && (ByteAt(value, kValidAt) & 1) != 0;
}

Attributes NumberOf(std::string_view value) {
  if (IsBinary(value)) return ByteAt(value, kBitsAt);
  Attributes number = 0;
  if (value.starts_with("0x")) std::from_chars(value.data() + 2, value.data() + value.size(), number, 16);
  return number;
}

std::string TextOf(Attributes number) {
  std::array<char, 8> digits = {};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
  return "0x" + std::string(digits.data(), end);
}

}  // namespace

Attributes BitsOfDosAttribute(std::string_view value) { return NumberOf(value) & kKept; }

std::string WithDosBits(std::string value, Attributes attributes) {
  const Attributes number = (NumberOf(value) & ~(kKept | kReadOnly)) | (attributes & kKept);
  if (!IsBinary(value)) return TextOf(number);
  value[kBitsAt] = static_cast<char>(number & 0xff);
  return value;
}

}  // namespace platform::posix
