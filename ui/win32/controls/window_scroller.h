#pragma once

#include "ui/win32/controls/native_window.h"

namespace ui::win32 {

/// Scrolls a window that is smaller than what its controls need, as on a screen with little room. Bars are
/// there only as long as they are needed.
class WindowScroller {
 public:
  /// Keeps the window.
  explicit WindowScroller(NativeWindow& window);

  /// How far the controls are moved to the left and up, in pixels.
  POINT moved() const { return moved_; }
  /// The size that the controls need, in pixels. To be told again whenever the window has another size.
  void Need(SIZE size);
  /// Scrolls so far that the control can be seen.
  void BringIntoView(HWND control);

 private:
  void Scroll(const Message& message, int bar, LONG POINT::*along);
  void MoveTo(POINT to);
  POINT Furthest() const;

  NativeWindow& window_;
  SIZE needed_{};
  POINT moved_{};
};

}  // namespace ui::win32
