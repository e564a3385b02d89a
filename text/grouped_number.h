#pragma once

#include <cstdint>
#include <string>

namespace text {

/// The marks of the user's number format; UTF-8.
struct NumberMarks {
  std::string thousands = ",";
  std::string decimal = ".";
};

/// A whole number with its digits in groups of three.
std::string GroupedNumber(std::int64_t value, const NumberMarks& marks);

/// A number with so many decimals (0 to 9), rounded half away from zero, its digits in groups of three, a
/// minus sign in front when negative, and no zero before the decimal mark when it is below 1 (".50").
std::string GroupedNumber(double value, int decimals, const NumberMarks& marks);

}  // namespace text
