#pragma once

#include <functional>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ui/win32/win32.h"

namespace ui::win32 {

struct Message {
  UINT id = 0;
  WPARAM wparam = 0;
  LPARAM lparam = 0;
};

/// None: the message goes on to the next handler and in the end to the system.
using Answer = std::optional<LRESULT>;
using MessageHandler = std::function<Answer(const Message&)>;

/// The class of windows, frames and other windows that paint themselves: it leaves everything to the system.
const wchar_t* PlainWindowClass();

struct WindowKind {
  const wchar_t* window_class = L"";
  DWORD style = 0;
  DWORD extended_style = 0;
};

/// A window of the system and the handlers of its messages. Every window of this front end is one, of
/// whatever class: the system's own procedure is asked for all that no handler answers. Not to be destroyed
/// inside one of its handlers.
class NativeWindow {
 public:
  /// `id` is the control's number in its window, 0 for a window.
  NativeWindow(const WindowKind& kind, HWND parent, int id);
  ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  HWND handle() const { return handle_; }

  void On(UINT message, MessageHandler handler);
  /// A message that a control sends about itself to the window around it: WM_COMMAND and WM_NOTIFY with their
  /// notification code, the others with code 0. It is handled here, where the control is.
  void OnNotice(UINT message, UINT code, MessageHandler handler);
  /// What the system does with a message.
  LRESULT Default(const Message& message);

  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return SendMessageW(handle_, message, wparam, lparam);
  }

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT id, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                    DWORD_PTR window);
  LRESULT Handle(const Message& message);
  Answer HandleNotice(const Message& message);

  HWND handle_ = nullptr;
  std::unordered_map<UINT, std::vector<MessageHandler>> handlers_;
  std::map<std::pair<UINT, UINT>, MessageHandler> notice_handlers_;
};

}  // namespace ui::win32
