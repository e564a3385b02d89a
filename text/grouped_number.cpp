#include "text/grouped_number.h"

#include <charconv>
#include <cmath>

#include "base/digits.h"

namespace text {
namespace {

/// Digits with the mark between groups of three, counted from the right.
std::string Grouped(const std::string& digits, const std::string& mark) {
  std::string result;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) result += mark;
    result += digits[i];
  }
  return result;
}

/// The digits of a whole number that may lie beyond every integer type; the longest double has 309 of them.
std::string DigitsOf(double whole) {
  char buffer[320];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, whole, std::chars_format::fixed, 0).ptr;
  return std::string(buffer, end);
}

}  // namespace

std::string GroupedNumber(std::int64_t value, const NumberMarks& marks) {
  std::string result = value < 0 ? "-" : "";
  const std::string digits = std::to_string(value).substr(result.size());
  return result += Grouped(digits, marks.thousands);
}

std::string GroupedNumber(double value, int decimals, const NumberMarks& marks) {
  const double scale = std::pow(10.0, decimals);
  double whole = std::trunc(std::abs(value));
  double fraction = std::round((std::abs(value) - whole) * scale);
  if (fraction >= scale) {
    whole += 1;
    fraction = 0;
  }
  // A value that is rounded to zero shows no sign.
  const std::string sign = value < 0 && (whole > 0 || fraction > 0) ? "-" : "";
  if (decimals == 0) return sign + Grouped(DigitsOf(whole), marks.thousands);
  const std::string before = whole > 0 ? Grouped(DigitsOf(whole), marks.thousands) : "";
  return sign + before + marks.decimal +
         base::PaddedWithZeros(DigitsOf(fraction), static_cast<std::size_t>(decimals));
}

}  // namespace text
