#pragma once

#include <QColor>
#include <QPalette>

#include "ui/geometry.h"

/// Colours and the name that the whole front end shares.
namespace ui::qt {

/// The desktop file without its extension; also the name of the icon.
inline constexpr char kDesktopFile[] = "quorvane";

/// Of two colours, as WCAG 2.1 counts it: 1 to 21; from 7 on a text is easy to read, from 3 on a mark to see.
double Contrast(const QColor& a, const QColor& b);

/// `share` of the way from one colour to the other, 0 to 1.
QColor Mix(const QColor& from, const QColor& to, double share);

/// Whether the desktop shows nothing but the strongest contrast; its colours stay then. Qt 6.4 does not say,
/// so it is taken from the text on a window: black and white and nothing between.
bool IsHighContrast();

/// The colours of a window, a frame or a label and of what is in it: text boxes, lists and buttons are
/// lighter than the window, with the same text colour, whatever the desktop's theme is.
/// The focus and ticks have a colour that goes with the background; on grey and white that of the
/// surroundings.
QPalette WindowPalette(const Colours& colours, const QColor& accent_around);
/// The colours of one button, text box or list that has its own.
QPalette ControlPalette(const Colours& colours, const QColor& accent_around);

}  // namespace ui::qt
