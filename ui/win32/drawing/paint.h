#pragma once

#include <optional>

#include "ui/control.h"
#include "ui/win32/win32.h"

/// Colours on a device context.
namespace ui::win32 {

COLORREF ToColorRef(const Colour& colour);

/// Whether the user has the system draw everything in high contrast.
bool IsHighContrast();

/// The colours to draw a control in: its own. None in high contrast and where it has none: the system's.
std::optional<Colours> OwnColours(const Control& control);
/// The same, but one without colours of its own has those of the nearest container that has some.
std::optional<Colours> ColoursAround(const Control& control);

/// How much a line stands out from what is behind it.
enum class Line {
  kFaint,  ///< round what takes no input
  kClear,  ///< with a contrast of more than 3
};
COLORREF LineColour(const Colours& around, Line line);

/// Draws the border of a box at the edge of `area`, which may belong to its whole window: the system's own
/// may be too pale to be seen. Blue, as the system has it, with the keyboard focus. In high contrast the
/// system's border stays.
void DrawBoxBorder(HDC context, const RECT& area, const Control& box, HWND handle, Line line);

/// Sets the colours of text, and gives back the brush for what is behind it. The system owns the brush.
HBRUSH UseColours(HDC context, COLORREF background, COLORREF text);
HBRUSH UseColours(HDC context, const Colours& colours);

/// Fills the background of a container.
void FillBackground(HDC context, const RECT& area, const Control& container);

}  // namespace ui::win32
