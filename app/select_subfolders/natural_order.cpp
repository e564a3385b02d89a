#include "app/select_subfolders/natural_order.h"

#include <algorithm>
#include <string>

#include "base/utf8.h"

namespace app {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The digits at the beginning of a text, which loses them; leading zeros say nothing.
std::string_view TakeNumber(std::string_view& text) {
  const auto end = static_cast<std::size_t>(std::ranges::find_if_not(text, IsDigit) - text.begin());
  std::string_view number = text.substr(0, end);
  text.remove_prefix(end);
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

/// Below 0, 0 or above 0, as a comes before b, is equal to it, or comes after it.
int CompareNumbers(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

int Compare(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    if (IsDigit(a.front()) && IsDigit(b.front())) {
      const std::string_view number = TakeNumber(a);
      if (const int order = CompareNumbers(number, TakeNumber(b)); order != 0) return order;
      continue;
    }
    if (a.front() != b.front()) return a.substr(0, 1).compare(b.substr(0, 1));
    a.remove_prefix(1);
    b.remove_prefix(1);
  }
  return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
}

}  // namespace

bool ComesBefore(std::string_view a, std::string_view b) {
  const int order = Compare(base::utf8::ToLower(a), base::utf8::ToLower(b));
  return order != 0 ? order < 0 : a < b;
}

}  // namespace app
