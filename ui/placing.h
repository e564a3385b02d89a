#pragma once

#include "ui/form.h"

namespace ui {

/// Where a window of a size stands in the middle of another one. It is moved and made smaller where it would
/// leave the screen, unless the other window stands on a further screen, of which nothing is known.
Rect CentredOver(const Form& other, Size size, Size screen);

}  // namespace ui
