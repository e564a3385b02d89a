#pragma once

#include <cstddef>
#include <string>

namespace base {

/// Zeros before the digits until they are `width` long; longer ones stay.
inline std::string PaddedWithZeros(std::string digits, std::size_t width) {
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

/// A number from 0 in at least `width` digits.
inline std::string Digits(int number, std::size_t width) {
  return PaddedWithZeros(std::to_string(number), width);
}

}  // namespace base
