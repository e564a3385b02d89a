#pragma once

#include <functional>

#include "ui/win32/controls/native_window.h"

namespace ui::win32 {

/// Puts the line of a text box of one line into the middle of its height; the system leaves it at the top.
/// `line_height` gives its height in pixels. After a change of that height or of the colours the caller
/// redraws the frame, and then fills what lies around the line. Keeps both arguments.
void PlaceLineInTheMiddle(NativeWindow& edit, const std::function<int()>& line_height);

/// Fills what lies between the border and the line of such a box.
void FillAroundLine(HWND edit);

}  // namespace ui::win32
