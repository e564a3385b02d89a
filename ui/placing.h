#pragma once

#include "ui/form.h"

namespace ui {

/// A place that begins on the first screen, moved so far that all of it shows, and made smaller where the
/// screen is. Of further screens nothing is known: a place there stays as it is.
Rect KeptOnItsScreen(Rect place, Size screen);

/// Where a window of a size is placed in the middle of another one. It is moved and made smaller where it
/// would leave the screen, unless the other window is on a further screen, of which nothing is known.
Rect CentredOver(const Form& other, Size size, Size screen);

}  // namespace ui
