#pragma once

#include <optional>

#include "ui/form.h"
#include "ui/win32/desktop/com.h"

struct ITaskbarList3;

namespace ui::win32 {

/// Progress on the buttons of the system's task bar.
class TaskBar {
 public:
  TaskBar();
  ~TaskBar();

  /// 0 to 1; none takes it away. Does nothing before the window's button has been made.
  void ShowProgress(HWND window, std::optional<double> fraction, TaskState state) const;

  /// The message that a window gets when its button has been made.
  static UINT ButtonMadeMessage();

 private:
  ComPointer<ITaskbarList3> list_;
};

}  // namespace ui::win32
