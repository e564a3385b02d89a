#pragma once

#include "ui/form.h"

namespace app {

/// Where a window of a size stands in the middle of another one. It is moved and made smaller where it would
/// leave the screen, unless the other window stands on a further screen, of which nothing is known.
ui::Rect CentredOver(const ui::Form& other, ui::Size size, ui::Size screen);

}  // namespace app
