#include "ui/placing.h"

#include <algorithm>

namespace ui {

Rect CentredOver(const Form& other, Size size, Size screen) {
  size = {std::min(size.width, screen.width), std::min(size.height, screen.height)};
  Rect place{other.left() + (other.width() - size.width) / 2,
             other.top() + (other.height() - size.height) / 2, size.width, size.height};
  const bool on_screen =
      other.left() >= 0 && other.left() < screen.width && other.top() >= 0 && other.top() < screen.height;
  if (!on_screen) return place;
  place.left = std::clamp(place.left, 0, screen.width - size.width);
  place.top = std::clamp(place.top, 0, screen.height - size.height);
  return place;
}

}  // namespace ui
