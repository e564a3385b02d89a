#include "tests/contract/ui/driver.h"
#include "tests/contract/ui/win32/annotations.h"
#include "ui/win32/controls/window_peer.h"
#include "ui/win32/drawing/scale.h"
#include "ui/win32/front_end.h"
#include "ui/win32/wide_text.h"

namespace contract {
namespace {

using ui::win32::HandleOf;
using ui::win32::ToPixels;
using ui::win32::ToWide;

constexpr LPARAM kAltIsDown = 1 << 29;
constexpr WPARAM kCtrlA = 1;
constexpr int kFileName = 1148;  // cmb13 of <dlgs.h>

/// Under Wine a window manager may minimise a window again, or give it back an earlier size, when it hears
/// of the first change after a second one.
constexpr std::chrono::milliseconds kWindowManager{200};

class Win32Driver : public Driver {
 public:
  ui::FrontEnd& front_end() override { return front_end_; }

  void Click(ui::Control& control) override {
    Mouse(control, WM_LBUTTONDOWN);
    Mouse(control, WM_LBUTTONUP);
  }
  void DragOff(ui::Control& control) override {
    Mouse(control, WM_LBUTTONDOWN);
    Post(HandleOf(control), WM_LBUTTONUP, 0, MAKELPARAM(5, 500));
  }
  void HoverOver(ui::Control& control) override { Mouse(control, WM_MOUSEMOVE); }
  void TurnWheel(ui::Control& control, int notches) override {
    Post(HandleOf(control), WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA));
  }

  void Press(ui::Form& form, char key, Held held) override {
    const auto code = static_cast<unsigned char>(key);
    if (held == Held::kAlt) return Post(FocusIn(form), WM_SYSCHAR, code, kAltIsDown);
    if (key > kSpace) return Post(FocusIn(form), WM_CHAR, code);
    BYTE down[256] = {};
    if (held == Held::kShift) down[VK_SHIFT] = 0x80;
    SetKeyboardState(down);
    Post(FocusIn(form), WM_KEYDOWN, key == kDown ? VK_DOWN : code);
    Post(FocusIn(form), WM_KEYUP, key == kDown ? VK_DOWN : code);
  }
  void Type(ui::TextBox& box, const std::string& text) override {
    Click(box);
    Post(FocusIn(box.form()), WM_CHAR, kCtrlA);
    for (const wchar_t unit : ToWide(text)) {
      unit == L'\n' ? Driver::Press(box.form(), kEnter) : Post(FocusIn(box.form()), WM_CHAR, unit);
    }
  }
  void Drag(ui::ScrollBar& bar, int value) override {
    SetScrollPos(HandleOf(bar), SB_CTL, value, TRUE);
    Post(GetParent(HandleOf(bar)), WM_VSCROLL, SB_THUMBTRACK, reinterpret_cast<LPARAM>(HandleOf(bar)));
  }

  void Close(ui::Form& form) override { Post(HandleOf(form), WM_CLOSE); }
  void Minimise(ui::Form& form) override {
    Post(HandleOf(form), WM_SYSCOMMAND, SC_MINIMIZE);
    PassTime(kWindowManager);
  }
  void Resize(ui::Form& form, ui::Size outer) override {
    PassTime(kWindowManager);
    const UINT dpi = GetDpiForWindow(HandleOf(form));
    SetWindowPos(HandleOf(form), nullptr, 0, 0, ToPixels(outer.width, dpi), ToPixels(outer.height, dpi),
                 SWP_NOMOVE | SWP_NOZORDER);
    front_end_.RunPendingEvents();
  }
  void PassTime(std::chrono::milliseconds time) override {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(time.count());
    while (GetTickCount64() < end) front_end_.WaitForEvents(1ms);
  }

  bool DialogIsOpen() override { return GetWindow(GetActiveWindow(), GW_OWNER) != nullptr; }
  void AnswerYes() override { PostMessageW(GetActiveWindow(), WM_COMMAND, IDYES, 0); }
  void AnswerByEnter() override { PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0); }
  void AnswerText(const std::string& text) override {
    for (const wchar_t unit : ToWide(text)) PostMessageW(GetFocus(), WM_CHAR, unit, 0);
    AnswerByEnter();
  }
  void AnswerPath(const std::string& path) override {
    SetDlgItemTextW(GetActiveWindow(), kFileName, ToWide(path).c_str());
    PostMessageW(GetActiveWindow(), WM_COMMAND, IDOK, 0);
  }
  void LeaveDialog() override {
    const bool asks = GetDlgItem(GetActiveWindow(), IDNO) != nullptr;
    PostMessageW(GetActiveWindow(), asks ? WM_COMMAND : WM_CLOSE, asks ? IDNO : 0, 0);
  }

  /// By itself the system reads out what a window shows.
  std::string SpokenName(ui::Control& control) override {
    const auto told = annotations_.names.find(HandleOf(control));
    if (told != annotations_.names.end()) return base::Narrow(told->second);
    wchar_t shown[100];
    GetWindowTextW(HandleOf(control), shown, ARRAYSIZE(shown));
    std::string text = base::Narrow(shown);
    if (control.access_key() != 0) std::erase(text, '&');
    return text;
  }

 private:
  static HWND FocusIn(ui::Form& form) {
    return IsChild(HandleOf(form), GetFocus()) ? GetFocus() : HandleOf(form);
  }

  /// Where the control is, or would be, on the screen: as a user hits it.
  void Mouse(ui::Control& control, UINT message) {
    RECT place{};
    GetWindowRect(HandleOf(control), &place);
    POINT spot{place.left + 10, (place.top + place.bottom) / 2};
    const HWND hit = WindowFromPoint(spot);
    if (GetAncestor(hit, GA_ROOT) != HandleOf(control.form())) return;
    ScreenToClient(hit, &spot);
    Post(hit, message, 0, MAKELPARAM(spot.x, spot.y));
  }

  /// Handles also what the message leads to.
  void Post(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
    PostMessageW(window, message, wparam, lparam);
    front_end_.RunPendingEvents();
    front_end_.RunPendingEvents();
  }

  Annotations annotations_;
  ui::win32::Win32FrontEnd front_end_;
};

}  // namespace

std::unique_ptr<Driver> MakeDriver() { return std::make_unique<Win32Driver>(); }

}  // namespace contract
