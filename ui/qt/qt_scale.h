#pragma once

#include <QRect>
#include <QSize>

#include "ui/geometry.h"

/// Twips and the pixels of the main screen, by its logical dots per inch: the measure that also scales the
/// fonts.
namespace ui::qt {

int ToPixels(Twips length);
Twips ToTwips(int pixels);

/// The edges are rounded, not the lengths, so that controls that touch in twips touch on the screen.
QRect ToPixels(const Rect& bounds);
Rect ToTwips(const QRect& pixels);
Size ToTwips(const QSize& pixels);

}  // namespace ui::qt
