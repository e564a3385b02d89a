#include "ui/line_break.h"

#include <algorithm>

#include "base/utf8.h"

namespace ui {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// Bytes of the longest beginning of a text that is not wider than `width`; one character at least.
std::size_t FittingBytes(std::string_view text, Twips width, const TextMeasure& measure) {
  std::size_t fits = 1;
  std::size_t too_long = base::utf8::Length(text) + 1;
  while (too_long - fits > 1) {
    const std::size_t middle = (fits + too_long) / 2;
    const std::string beginning(text.substr(0, base::utf8::OffsetOf(text, middle)));
    (measure(beginning) <= width ? fits : too_long) = middle;
  }
  return base::utf8::OffsetOf(text, fits);
}

/// Where a line that may have so many bytes is best ended.
std::size_t BreakBefore(std::string_view text, std::size_t most) {
  if (most == text.size() || text[most] == ' ') return most;
  for (const std::string_view marks : {" ", "/\\"}) {
    const std::size_t mark = text.substr(0, most).find_last_of(marks);
    if (mark != std::string_view::npos && mark > 0) return mark + 1;
  }
  return most;
}

std::string BreakParagraph(std::string_view text, Twips width, const TextMeasure& measure) {
  std::string result;
  while (!text.empty()) {
    const std::size_t end = BreakBefore(text, FittingBytes(text, width, measure));
    if (!result.empty()) result += kLineEnd;
    const std::string_view line = text.substr(0, end);
    result += line.substr(0, line.find_last_not_of(' ') + 1);
    text.remove_prefix(end);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  }
  return result;
}

}  // namespace

std::string BreakLines(std::string_view text, Twips width, const TextMeasure& measure) {
  std::string result;
  while (true) {
    const std::size_t end = text.find(kLineEnd);
    result += BreakParagraph(text.substr(0, end), width, measure);
    if (end == std::string_view::npos) return result;
    result += kLineEnd;
    text.remove_prefix(end + kLineEnd.size());
  }
}

int CountLines(std::string_view text) {
  int lines = text.empty() ? 0 : 1;
  for (const char c : text) lines += c == '\n' ? 1 : 0;
  return lines;
}

}  // namespace ui
