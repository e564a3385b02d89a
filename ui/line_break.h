#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "ui/geometry.h"

namespace ui {

/// How wide a text is on the screen.
using TextMeasure = std::function<Twips(const std::string&)>;

/// The text with line ends (CR LF) put in so that no line is wider than `width`: at spaces, else behind the
/// separators of a path, else within a word. Toolkits break at spaces alone, and a long path without one
/// would be cut off.
std::string BreakLines(std::string_view text, Twips width, const TextMeasure& measure);

/// The number of lines of a text; 0 for an empty one.
int CountLines(std::string_view text);

}  // namespace ui
