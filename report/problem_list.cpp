#include "report/problem_list.h"

#include <utility>

#include "base/utf8.h"

namespace report {

void ProblemList::Clear() { *this = {}; }

void ProblemList::Add(std::size_t start, std::string line) {
  places_.push_back({start, base::utf8::Length(line)});
  lines_.push_back(std::move(line));
}

void ProblemList::Emptied(std::size_t most_characters) {
  for (std::string& line : lines_) {
    const std::size_t length = base::utf8::Length(line);
    const bool fits = lost_.more == 0 && lost_characters_ + length <= most_characters;
    if (!fits) {
      ++lost_.more;
      continue;
    }
    lost_characters_ += length;
    lost_.lines.push_back(std::move(line));
  }
  places_.clear();
  lines_.clear();
}

ProblemList::Lost ProblemList::TakeLost() {
  lost_characters_ = 0;
  return std::exchange(lost_, {});
}

}  // namespace report
