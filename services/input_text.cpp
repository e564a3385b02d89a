#include "services/input_text.h"

#include <algorithm>
#include <charconv>

#include "base/utf8.h"
#include "services/setup_text.h"

namespace services {
namespace {

std::string_view WithoutLast(std::string_view text, char last) {
  if (text.ends_with(last)) text.remove_suffix(1);
  return text;
}

}  // namespace

InputText::InputText(std::string_view content) : rest_(base::utf8::WithoutByteOrderMark(content)) {}

std::optional<std::string> InputText::Item() {
  SkipSpaces();
  if (AtEnd()) return std::nullopt;
  if (!rest_.starts_with('"')) return std::string(TakeUntil(",\n"));
  rest_.remove_prefix(1);
  std::string item(rest_.substr(0, rest_.find('"')));
  next_line_ += static_cast<int>(std::ranges::count(item, '\n'));
  rest_.remove_prefix(std::min(item.size() + 1, rest_.size()));
  SkipSpaces();
  if (rest_.starts_with(',') || rest_.starts_with('\n') || rest_.starts_with("\r\n")) TakeUntil(",\n");
  return item;
}

std::optional<std::int16_t> InputText::Number() {
  const std::optional<std::string> item = Item();
  if (!item) return std::nullopt;
  std::string_view digits = *item;
  while (digits.ends_with(' ')) digits.remove_suffix(1);
  if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
  std::int16_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [behind, failure] = std::from_chars(digits.data(), end, number);
  if (behind != end || failure == std::errc::invalid_argument) return Fail(kInputNotANumber);
  if (failure != std::errc{}) return Fail(kInputOverflow);
  return number;
}

std::optional<std::int16_t> InputText::Number(int low, int high) {
  const std::optional<std::int16_t> number = Number();
  if (number && (*number < low || *number > high)) return Fail(kInputBadValue);
  return number;
}

std::optional<std::string> InputText::Line() {
  if (AtEnd()) return std::nullopt;
  if (rest_.find('\n') == std::string_view::npos) return Fail(kInputPastEnd);
  return std::string(TakeUntil("\n"));
}

bool InputText::AtEnd() {
  if (error_ == 0) line_ = next_line_;
  if (error_ == 0 && rest_.empty()) error_ = kInputPastEnd;
  return error_ != 0;
}

/// What comes before the first of these characters, which is passed over; a CR before a line end or at the
/// end of the file belongs to the line end.
std::string_view InputText::TakeUntil(std::string_view ends) {
  const std::size_t at = rest_.find_first_of(ends);
  const std::string_view taken = rest_.substr(0, at);
  const bool line_ends = at == std::string_view::npos || rest_[at] == '\n';
  if (line_ends) ++next_line_;
  if (!line_ends && comma_line_ == 0) comma_line_ = line_;
  rest_.remove_prefix(at == std::string_view::npos ? rest_.size() : at + 1);
  return line_ends ? WithoutLast(taken, '\r') : taken;
}

void InputText::SkipSpaces() {
  while (rest_.starts_with(' ')) rest_.remove_prefix(1);
}

std::nullopt_t InputText::Fail(std::int16_t error) {
  error_ = error;
  return std::nullopt;
}

}  // namespace services
