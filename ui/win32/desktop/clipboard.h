#pragma once

#include "ui/front_end.h"
#include "ui/win32/controls/native_window.h"

namespace ui::win32 {

/// The system's clipboard. While another program holds it, a call waits a moment and then does nothing.
class Win32Clipboard : public Clipboard {
 public:
  Win32Clipboard();
  void Clear() override;
  void SetText(const std::string& text) override;
  std::string Text() override;

 private:
  NativeWindow owner_;  ///< the system wants one for what is put on it
};

}  // namespace ui::win32
