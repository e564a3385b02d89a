#pragma once

#include "ui/geometry.h"
#include "ui/win32/win32.h"

/// Twips and the pixels of a screen with so many dots per inch.
namespace ui::win32 {

/// The dots that an inch of the program has in a window, and on the first screen: those of the screen, more
/// where the user has the system show its texts larger.
UINT DotsPerInch(HWND window);
UINT DotsPerInch();

/// The first screen without the task bar and the like.
RECT WorkArea();

int ToPixels(Twips length, UINT dpi);
/// Edges are rounded, not sizes, so that neighbours stay neighbours.
RECT ToPixels(const Rect& bounds, UINT dpi);
Twips ToTwips(int pixels, UINT dpi);
Rect ToTwips(const RECT& pixels, UINT dpi);

inline int Width(const RECT& rect) { return rect.right - rect.left; }
inline int Height(const RECT& rect) { return rect.bottom - rect.top; }

}  // namespace ui::win32
