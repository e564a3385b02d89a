#pragma once

#include <cstdint>
#include <string>

namespace ui {

/// Lengths and positions are in twips, 1,440 to the inch: 15 to a pixel on a screen of 96 dots per inch. A
/// front end turns them into the pixels of the screen that shows the window.
using Twips = int;

struct Size {
  Twips width = 0;
  Twips height = 0;
  bool operator==(const Size&) const = default;
};

/// Left and top count from the inner corner of the container; of a window, from the corner of the screen.
struct Rect {
  Twips left = 0;
  Twips top = 0;
  Twips width = 0;
  Twips height = 0;

  Twips right() const { return left + width; }
  Twips bottom() const { return top + height; }
  bool operator==(const Rect&) const = default;
};

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

/// A background never comes without a text colour that is readable on it.
struct Colours {
  Colour background;
  Colour text;
  bool operator==(const Colours&) const = default;
};

struct Font {
  std::string name;  ///< empty: the system's own
  int points = 9;
  bool bold = false;
  bool operator==(const Font&) const = default;
};

}  // namespace ui
