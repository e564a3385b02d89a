#pragma once

#include <string>

#include "ui/win32/desktop/com.h"

struct IAccPropServices;

namespace ui::win32 {

/// What screen readers are told about a control beyond what its window tells them itself.
class Accessibility {
 public:
  Accessibility();
  ~Accessibility();

  /// An empty text leaves the window's own.
  void SetName(HWND window, const std::string& name) const;
  void SetDescription(HWND window, const std::string& description) const;
  /// What the window is: a ROLE_SYSTEM_ of oleacc.h.
  void SetRole(HWND window, LONG role) const;
  /// Before the window goes.
  void Forget(HWND window) const;

 private:
  ComPointer<IAccPropServices> services_;
};

}  // namespace ui::win32
