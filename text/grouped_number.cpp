#include "text/grouped_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/digits.h"

namespace text {
namespace {

std::string Grouped(std::string digits, const NumberMarks& marks) {
  std::size_t at = digits.size();
  for (std::size_t group = 0; !marks.groups.empty(); ++group) {
    const int size = marks.groups[std::min(group, marks.groups.size() - 1)];
    if (size <= 0 || at <= static_cast<std::size_t>(size)) break;
    at -= static_cast<std::size_t>(size);
    digits.insert(at, marks.thousands);
  }
  return digits;
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
  return result += Grouped(digits, marks);
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
  if (decimals == 0) return sign + Grouped(DigitsOf(whole), marks);
  const std::string before = whole > 0 ? Grouped(DigitsOf(whole), marks) : "";
  return sign + before + marks.decimal +
         base::PaddedWithZeros(DigitsOf(fraction), static_cast<std::size_t>(decimals));
}

}  // namespace text
