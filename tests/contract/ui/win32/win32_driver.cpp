#include "ui/win32/win32.h"

#include <oleacc.h>
#include <oleauto.h>

#include <deque>
#include <map>

#include "tests/contract/ui/driver.h"
#include "tests/contract/ui/win32/annotations.h"
#include "ui/win32/native_window.h"
#include "ui/win32/scale.h"
#include "ui/win32/wide_text.h"
#include "ui/win32/win32_front_end.h"
#include "ui/win32/window_peer.h"

namespace contract {
namespace {

using ui::win32::Answer;
using ui::win32::HandleOf;
using ui::win32::Message;

constexpr UINT kLater = WM_APP;
constexpr UINT_PTR kLookForDialog = 1;
constexpr LPARAM kAltIsDown = 1 << 29;
constexpr WPARAM kCtrlA = 1;

/// Under Wine a window manager minimises a window again when it hears of the first time after a restore.
constexpr int kWindowManager = 200;  // milliseconds

/// The window that gets the mouse at a point of a window; null when that is disabled.
HWND WindowAt(HWND window, POINT screen) {
  if (!IsWindowEnabled(window)) return nullptr;
  while (true) {
    POINT inside = screen;
    ScreenToClient(window, &inside);
    const HWND child = ChildWindowFromPointEx(window, inside, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
    if (child == nullptr || child == window) return window;
    window = child;
  }
}

BOOL CALLBACK TakeDialog(HWND window, LPARAM found) {
  const bool is_dialog =
      IsWindowVisible(window) && IsWindowEnabled(window) && GetWindow(window, GW_OWNER) != nullptr;
  if (is_dialog) *reinterpret_cast<HWND*>(found) = window;
  return !is_dialog;
}

HWND OpenDialog() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), &TakeDialog, reinterpret_cast<LPARAM>(&found));
  return found;
}

class Win32Driver : public Driver {
 public:
  Win32Driver() {
    window_.On(kLater, [this](const Message&) -> Answer {
      const std::function<void()> act = std::move(later_.front());
      later_.pop_front();
      act();
      return 0;
    });
    window_.On(WM_TIMER, [this](const Message&) -> Answer {
      if (const HWND dialog = OpenDialog()) {
        KillTimer(window_.handle(), kLookForDialog);
        answer_(dialog);
      }
      return 0;
    });
  }

  ui::FrontEnd& front_end() override { return front_end_; }

  /// Where the control is, or would be, in its window: as a user hits it.
  void Click(ui::Control& control) override {
    PostMouse(control, WM_LBUTTONDOWN);
    PostMouse(control, WM_LBUTTONUP);
    Settle();
  }

  void Press(ui::Form& form, Key key) override {
    static const std::map<Key, WPARAM> keys = {{Key::kSpace, VK_SPACE},
                                               {Key::kEnter, VK_RETURN},
                                               {Key::kEscape, VK_ESCAPE},
                                               {Key::kTab, VK_TAB},
                                               {Key::kBackTab, VK_TAB}};
    HoldShift(key == Key::kBackTab);
    PressKey(FocusIn(form), keys.at(key));
    HoldShift(false);
  }

  void PressAccessKey(ui::Form& form, char letter) override {
    PostMessageW(FocusIn(form), WM_SYSCHAR, static_cast<WPARAM>(letter), kAltIsDown);
    Settle();
  }

  void Type(ui::TextBox& box, const std::string& text) override {
    Click(box);
    PostMessageW(FocusIn(box.form()), WM_CHAR, kCtrlA, 0);
    for (const wchar_t unit : ui::win32::ToWide(text)) {
      if (unit == L'\n') {
        PressKey(FocusIn(box.form()), VK_RETURN);
      } else {
        PostMessageW(FocusIn(box.form()), WM_CHAR, unit, 0);
      }
    }
    Settle();
  }

  void Choose(ui::DropDownList& list, int index) override {
    SetFocus(HandleOf(list));
    for (int step = list.list_index(); step < index; ++step) PressKey(FocusIn(list.form()), VK_DOWN);
  }

  void Drag(ui::ScrollBar& bar, int value) override {
    SetScrollPos(HandleOf(bar), SB_CTL, value, TRUE);
    SendMessageW(GetParent(HandleOf(bar)), WM_VSCROLL, SB_THUMBTRACK,
                 reinterpret_cast<LPARAM>(HandleOf(bar)));
    Settle();
  }

  void Close(ui::Form& form) override {
    PostMessageW(HandleOf(form), WM_CLOSE, 0, 0);
    Settle();
  }

  void Minimise(ui::Form& form) override {
    PostMessageW(HandleOf(form), WM_SYSCOMMAND, SC_MINIMIZE, 0);
    PassTime(kWindowManager);
  }

  void Resize(ui::Form& form, ui::Size outer) override {
    const UINT dpi = GetDpiForWindow(HandleOf(form));
    SetWindowPos(HandleOf(form), nullptr, 0, 0, ui::win32::ToPixels(outer.width, dpi),
                 ui::win32::ToPixels(outer.height, dpi), SWP_NOMOVE | SWP_NOZORDER);
    Settle();
  }

  void HoverOver(ui::Control& control) override {
    PostMouse(control, WM_MOUSEMOVE);
    Settle();
  }

  void Later(std::function<void()> act) override {
    later_.push_back(std::move(act));
    PostMessageW(window_.handle(), kLater, 0, 0);
  }

  void PassTime(int milliseconds) override {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
      front_end_.WaitForEvents(static_cast<int>(end - now));
    }
  }

  void AnswerYes() override {
    WhenADialogIsOpen([](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDYES, 0); });
  }
  void AnswerByLeaving() override {
    WhenADialogIsOpen([](HWND dialog) {
      const HWND no = GetDlgItem(dialog, IDNO);
      PostMessageW(dialog, no != nullptr ? WM_COMMAND : WM_CLOSE, no != nullptr ? IDNO : 0, 0);
    });
  }
  void AnswerText(const std::string& text) override {
    WhenADialogIsOpen([text](HWND dialog) {
      for (const wchar_t unit : ui::win32::ToWide(text)) PostMessageW(GetFocus(), WM_CHAR, unit, 0);
      PostMessageW(dialog, WM_KEYDOWN, VK_RETURN, 0);
    });
  }

  std::string SpokenName(ui::Control& control) override {
    if (const std::string told = annotations_.NameOf(HandleOf(control)); !told.empty()) return told;
    void* made = nullptr;
    if (FAILED(AccessibleObjectFromWindow(HandleOf(control), static_cast<DWORD>(OBJID_CLIENT),
                                          IID_IAccessible, &made))) {
      return {};
    }
    auto* object = static_cast<IAccessible*>(made);
    VARIANT self{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    object->get_accName(self, &name);
    const std::string result = name != nullptr ? ui::win32::FromWide(name) : std::string();
    SysFreeString(name);
    object->Release();
    return result;
  }

 private:
  static HWND FocusIn(ui::Form& form) {
    const HWND window = HandleOf(form);
    return IsChild(window, GetFocus()) ? GetFocus() : window;
  }

  static void HoldShift(bool down) {
    BYTE keys[256];
    GetKeyboardState(keys);
    keys[VK_SHIFT] = down ? 0x80 : 0;
    SetKeyboardState(keys);
  }

  void PressKey(HWND window, WPARAM key) {
    PostMessageW(window, WM_KEYDOWN, key, 1);
    PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    Settle();
  }

  static void PostMouse(ui::Control& control, UINT message) {
    RECT place{};
    GetWindowRect(HandleOf(control), &place);
    POINT spot{place.left + 10, place.top + ui::win32::Height(place) / 2};
    const HWND window = WindowAt(HandleOf(control.form()), spot);
    if (window == nullptr) return;
    ScreenToClient(window, &spot);
    PostMessageW(window, message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0, MAKELPARAM(spot.x, spot.y));
  }

  /// Twice: what has been posted may post more.
  void Settle() {
    front_end_.RunPendingEvents();
    front_end_.RunPendingEvents();
  }

  void WhenADialogIsOpen(std::function<void(HWND)> answer) {
    answer_ = std::move(answer);
    SetTimer(window_.handle(), kLookForDialog, 10, nullptr);
  }

  Annotations annotations_;
  ui::win32::Win32FrontEnd front_end_;
  ui::win32::NativeWindow window_{{ui::win32::PlainWindowClass()}, HWND_MESSAGE, 0};
  std::deque<std::function<void()>> later_;
  std::function<void(HWND)> answer_;
};

}  // namespace

std::unique_ptr<Driver> MakeDriver() { return std::make_unique<Win32Driver>(); }

}  // namespace contract
