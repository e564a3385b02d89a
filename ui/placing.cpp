#include "ui/placing.h"

#include <algorithm>

namespace ui {

namespace {

bool BeginsOnScreen(const Rect& place, Size screen) {
  return place.left >= 0 && place.left < screen.width && place.top >= 0 && place.top < screen.height;
}

Rect KeptOn(Rect place, Size screen) {
  place.width = std::min(place.width, screen.width);
  place.height = std::min(place.height, screen.height);
  place.left = std::clamp(place.left, 0, screen.width - place.width);
  place.top = std::clamp(place.top, 0, screen.height - place.height);
  return place;
}

}  // namespace

Rect KeptOnItsScreen(Rect place, Size screen) {
  return BeginsOnScreen(place, screen) ? KeptOn(place, screen) : place;
}

Rect CentredOver(const Form& other, Size size, Size screen) {
  size = {std::min(size.width, screen.width), std::min(size.height, screen.height)};
  const Rect place{other.left() + (other.width() - size.width) / 2,
                   other.top() + (other.height() - size.height) / 2, size.width, size.height};
  return BeginsOnScreen(other.bounds(), screen) ? KeptOn(place, screen) : place;
}

}  // namespace ui
