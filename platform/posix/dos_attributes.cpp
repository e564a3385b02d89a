#include "platform/posix/dos_attributes.h"

#include <sys/xattr.h>

#include <array>
#include <charconv>

#include "platform/posix/posix_error.h"

namespace platform::posix {
namespace {

constexpr const char* kName = "user.DOSATTRIB";
constexpr Attributes kKept = kHidden | kSystem;
constexpr std::size_t kLongestValue = 256;

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

std::optional<std::string> ValueIn(const std::array<char, kLongestValue>& buffer, ssize_t length) {
  if (length < 0) return std::nullopt;
  return std::string(buffer.data(), static_cast<std::size_t>(length));
}

}  // namespace

Attributes BitsOfDosAttribute(std::string_view value) { return NumberOf(value) & kKept; }

std::string WithDosBits(std::string value, Attributes attributes) {
  const Attributes number = (NumberOf(value) & ~(kKept | kReadOnly)) | (attributes & kKept);
  if (!IsBinary(value)) return TextOf(number);
  value[kBitsAt] = static_cast<char>(number & 0xff);
  return value;
}

std::optional<std::string> ReadDosAttribute(int file) {
  std::array<char, kLongestValue> buffer = {};
  return ValueIn(buffer, fgetxattr(file, kName, buffer.data(), buffer.size()));
}

bool MarkNewFile(int file, Attributes attributes) {
  const std::string value = TextOf(attributes & kKept);
  return fsetxattr(file, kName, value.data(), value.size(), 0) == 0;
}

std::optional<std::string> ReadDosAttribute(const std::string& path) {
  std::array<char, kLongestValue> buffer = {};
  return ValueIn(buffer, getxattr(path.c_str(), kName, buffer.data(), buffer.size()));
}

Status WriteDosAttribute(const std::string& path, const std::string& value) {
  if (setxattr(path.c_str(), kName, value.data(), value.size(), 0) != 0) return LastError();
  return Done{};
}

}  // namespace platform::posix
