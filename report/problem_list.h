#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ui/text_box.h"

namespace report {

/// The lines of a report about something that went wrong: where they are in the text box, and those that
/// the box lost when it was emptied. Lengths and places are characters.
class ProblemList {
 public:
  /// A new report begins.
  void Clear();
  /// The line is at that place of the text box.
  void Add(std::size_t start, std::string line);
  bool empty() const { return places_.empty(); }
  /// In the order of the text.
  const std::vector<ui::Selection>& places() const { return places_; }

  /// The text box was emptied. Its lines are kept, the first ones up to so many characters altogether.
  void Emptied(std::size_t most_characters);

  bool HasLost() const { return !lost_.lines.empty() || lost_.more > 0; }

  struct Lost {
    std::vector<std::string> lines;
    std::size_t more = 0;  ///< how many lines were not kept
  };
  /// What was in the box when it was emptied, which is forgotten here.
  Lost TakeLost();

 private:
  std::vector<ui::Selection> places_;
  std::vector<std::string> lines_;  ///< at these places
  Lost lost_;
  std::size_t lost_characters_ = 0;
};

}  // namespace report
