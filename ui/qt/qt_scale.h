#pragma once

#include <QRect>
#include <QSize>

#include "ui/geometry.h"

/// Twips and the pixels of the main screen, by its logical dots per inch, the measure that also scales the
/// fonts, and by the size of the desktop's text.
namespace ui::qt {

/// How much larger than usual the desktop wants its text, 1 or more: the windows grow with it.
double TextScale();

int ToPixels(Twips length);
Twips ToTwips(int pixels);

/// The edges are rounded, not the lengths, so that controls that touch in twips touch on the screen.
QRect ToPixels(const Rect& bounds);
Rect ToTwips(const QRect& pixels);
Size ToTwips(const QSize& pixels);

}  // namespace ui::qt
