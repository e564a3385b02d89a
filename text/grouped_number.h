#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace text {

/// The marks of the user's number format; UTF-8.
struct NumberMarks {
  std::string thousands = ",";
  std::string decimal = ".";
  /// Digits in each group, from the right; the last number holds for all further ones, a 0 takes the rest.
  std::vector<int> groups = {3};
};

/// A whole number with its digits in groups.
std::string GroupedNumber(std::int64_t value, const NumberMarks& marks);

/// A number with so many decimals (0 to 9), rounded half away from zero, its digits in groups, a
/// minus sign in front when negative, and no zero before the decimal mark when it is below 1 (".50").
std::string GroupedNumber(double value, int decimals, const NumberMarks& marks);

}  // namespace text
