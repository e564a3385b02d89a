#include "ui/win32/controls/native_window.h"

#include <commctrl.h>

namespace ui::win32 {
namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr wchar_t kObjectProperty[] = L"Quorvane.Window";
constexpr WORD kProgramIcon = 1;  // as in the program's resources

bool IsNotice(UINT message) {
  return message == WM_COMMAND || message == WM_NOTIFY || message == WM_VSCROLL || message == WM_HSCROLL ||
         message == WM_DRAWITEM || (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
}

const NMHDR& Header(const Message& message) { return *reinterpret_cast<const NMHDR*>(message.lparam); }

HWND SenderOf(const Message& message) {
  if (message.id == WM_NOTIFY) return Header(message).hwndFrom;
  if (message.id == WM_DRAWITEM) return reinterpret_cast<const DRAWITEMSTRUCT*>(message.lparam)->hwndItem;
  return reinterpret_cast<HWND>(message.lparam);
}

UINT CodeOf(const Message& message) {
  if (message.id == WM_NOTIFY) return Header(message).code;
  return message.id == WM_COMMAND ? HIWORD(message.wparam) : 0;
}

ATOM RegisterPlainClass() {
  WNDCLASSEXW plain{};
  plain.cbSize = sizeof plain;
  plain.style = CS_DBLCLKS;
  plain.lpfnWndProc = DefWindowProcW;
  plain.hInstance = GetModuleHandleW(nullptr);
  plain.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  plain.hIcon = LoadIconW(plain.hInstance, MAKEINTRESOURCEW(kProgramIcon));
  plain.lpszClassName = L"QuorvaneWindow";
  return RegisterClassExW(&plain);
}

}  // namespace

const wchar_t* PlainWindowClass() {
  static const ATOM registered = RegisterPlainClass();
  return MAKEINTATOM(registered);
}

NativeWindow::NativeWindow(const WindowKind& kind, HWND parent, int id) {
  handle_ =
      CreateWindowExW(kind.extended_style, kind.window_class, L"", kind.style, CW_USEDEFAULT, 0, 0, 0, parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  SetPropW(handle_, kObjectProperty, this);
  SetWindowSubclass(handle_, &Procedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

NativeWindow::~NativeWindow() {
  if (handle_ == nullptr) return;  // gone with the window around it
  RemovePropW(handle_, kObjectProperty);
  RemoveWindowSubclass(handle_, &Procedure, kSubclass);
  DestroyWindow(handle_);
}

void NativeWindow::On(UINT message, MessageHandler handler) {
  handlers_[message].push_back(std::move(handler));
}

void NativeWindow::OnNotice(UINT message, UINT code, MessageHandler handler) {
  notice_handlers_[{message, code}] = std::move(handler);
}

LRESULT NativeWindow::Default(const Message& message) {
  return DefSubclassProc(handle_, message.id, message.wparam, message.lparam);
}

LRESULT CALLBACK NativeWindow::Procedure(HWND, UINT id, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                         DWORD_PTR window) {
  return reinterpret_cast<NativeWindow*>(window)->Handle({id, wparam, lparam});
}

LRESULT NativeWindow::Handle(const Message& message) {
  if (IsNotice(message.id)) {
    if (const Answer answer = HandleNotice(message)) return *answer;
  }
  const auto found = handlers_.find(message.id);
  if (found != handlers_.end()) {
    for (const MessageHandler& handler : found->second) {
      if (const Answer answer = handler(message)) return *answer;
    }
  }
  const LRESULT result = Default(message);
  if (message.id == WM_NCDESTROY) {
    RemovePropW(handle_, kObjectProperty);
    handle_ = nullptr;
  }
  return result;
}

Answer NativeWindow::HandleNotice(const Message& message) {
  const auto* sender = static_cast<const NativeWindow*>(GetPropW(SenderOf(message), kObjectProperty));
  if (sender == nullptr) return std::nullopt;
  const auto& handlers = sender->notice_handlers_;
  const auto found = handlers.find({message.id, CodeOf(message)});
  return found == handlers.end() ? std::nullopt : found->second(message);
}

}  // namespace ui::win32
