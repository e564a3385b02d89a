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

/// Sets the colours of text, and gives back the brush for what is behind it. The system owns the brush.
HBRUSH UseColours(HDC context, COLORREF background, COLORREF text);
HBRUSH UseColours(HDC context, const Colours& colours);

/// Fills the background of a container.
void FillBackground(HDC context, const RECT& area, const Control& container);

}  // namespace ui::win32
