#pragma once

#include <string>

#include "ui/win32/win32.h"

namespace ui::win32 {

/// A note of the system about a window of a program in the background. Its icon is beside the clock until
/// the note has gone.
class Notice {
 public:
  Notice() = default;
  ~Notice() { Remove(); }
  Notice(const Notice&) = delete;
  Notice& operator=(const Notice&) = delete;

  /// Takes the place of the note before. `window` gets the messages about it.
  void Show(HWND window, const std::string& title, const std::string& text);
  /// From the window's message kMessage: takes the note away once it is over. Returns whether the user
  /// clicked it.
  bool Handle(LPARAM event);
  void Remove();

  static constexpr UINT kMessage = WM_APP + 1;

 private:
  HWND window_ = nullptr;  ///< null: there is no note
};

}  // namespace ui::win32
