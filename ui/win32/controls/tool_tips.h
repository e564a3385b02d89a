#pragma once

#include <set>
#include <string>

#include "ui/win32/controls/native_window.h"

namespace ui::win32 {

/// The tool tips of one window.
class ToolTips {
 public:
  explicit ToolTips(HWND window);

  /// Lines in `text` end in CR LF; long ones are broken. An empty text takes the tip away.
  void Set(HWND control, const std::string& text);
  /// Before the control goes.
  void Forget(HWND control) { Set(control, {}); }

 private:
  NativeWindow tips_;
  HWND window_;
  std::set<HWND> controls_;
};

}  // namespace ui::win32
