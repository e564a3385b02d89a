#include <atomic>
#include <cstdint>
#include <random>
#include <string_view>

#include "platform/file_system.h"

namespace platform {
namespace {

constexpr std::string_view kPrefix = ".quorvane-";
constexpr std::string_view kSuffix = ".partial";
constexpr std::size_t kDigits = 16;
constexpr std::string_view kHex = "0123456789abcdef";

std::uint64_t RandomStart() {
  std::random_device device;
  return (static_cast<std::uint64_t>(device()) << 32) | device();
}

}  // namespace

bool IsTemporaryName(const std::string& name) {
  if (name.size() != kPrefix.size() + kDigits + kSuffix.size()) return false;
  if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix)) return false;
  const std::string_view digits = std::string_view(name).substr(kPrefix.size(), kDigits);
  return digits.find_first_not_of(kHex) == std::string_view::npos;
}

std::string MakeTemporaryName() {
  static std::atomic<std::uint64_t> next = RandomStart();
  std::uint64_t number = next.fetch_add(1);
  std::string digits(kDigits, '0');
  for (std::size_t i = kDigits; i > 0; --i, number >>= 4) digits[i - 1] = kHex[number & 15];
  return std::string(kPrefix).append(digits).append(kSuffix);
}

}  // namespace platform
