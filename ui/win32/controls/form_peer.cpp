#include "ui/win32/controls/form_peer.h"

#include <algorithm>
#include <array>

#include <oleacc.h>

#include "ui/win32/drawing/paint.h"
#include "ui/win32/drawing/scale.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

/// Posted to itself: a window tells that it has come to the front when events are run, not before.
constexpr UINT kActivated = WM_APP;

constexpr DWORD kTitle = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

WindowKind KindOf(FormStyle style) {
  switch (style) {
    case FormStyle::kMain:
      return {PlainWindowClass(), kTitle | WS_MINIMIZEBOX, WS_EX_APPWINDOW | WS_EX_CONTROLPARENT};
    case FormStyle::kReport:
      return {PlainWindowClass(), kTitle | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_THICKFRAME,
              WS_EX_APPWINDOW | WS_EX_CONTROLPARENT};
    case FormStyle::kDialog:
      return {PlainWindowClass(), kTitle | WS_POPUP | WS_THICKFRAME,
              WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT};
    case FormStyle::kPopUp:
      return {PlainWindowClass(), WS_POPUP | WS_BORDER | WS_CLIPCHILDREN,
              WS_EX_NOACTIVATE | WS_EX_TOPMOST | WS_EX_TOOLWINDOW};
  }
  return {};
}

/// Whether a window of this program has the keyboard, or none has.
bool IsInFront() {
  const HWND front = GetForegroundWindow();
  DWORD process = 0;
  if (front != nullptr) GetWindowThreadProcessId(front, &process);
  return front == nullptr || process == GetCurrentProcessId();
}

bool IsFirstWindow(const Toolkit& toolkit) {
  for (const FormPeer* form : toolkit.forms) {
    if (IsWindowVisible(form->handle())) return false;
  }
  return true;
}

}  // namespace

FormPeer::FormPeer(Form& form, Toolkit& toolkit)
    : WindowPeer(form, toolkit, KindOf(form.style())),
      form_(form),
      tool_tips_(handle()),
      scroller_(window()) {
  toolkit.forms.push_back(this);
  toolkit.accessibility.SetRole(handle(),
                                form.style() == FormStyle::kDialog ? ROLE_SYSTEM_DIALOG : ROLE_SYSTEM_WINDOW);
  // Marks of focus and access keys are seen from the start, not only after the first use of the keyboard.
  window().Send(WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS));
  HandleActivation();
  HandlePlace();
  HandleKeys();
  HandleLook();
}

FormPeer::~FormPeer() { std::erase(toolkit().forms, this); }

void FormPeer::HandleActivation() {
  window().On(WM_ACTIVATE, [this](const Message& message) -> Answer {
    if (LOWORD(message.wparam) == WA_INACTIVE || HIWORD(message.wparam) != 0) return std::nullopt;
    FocusInside();
    PostMessageW(handle(), kActivated, 0, 0);
    return 0;
  });
  window().On(kActivated, [this](const Message&) -> Answer {
    form_.UserActivated();
    return 0;
  });
  window().On(WM_MOUSEACTIVATE, [this](const Message&) -> Answer {
    if (form_.style() != FormStyle::kPopUp) return std::nullopt;
    return MA_NOACTIVATE;
  });
  window().On(WM_CLOSE, [this](const Message&) -> Answer {
    form_.UserClosed();
    return 0;
  });
}

void FormPeer::HandlePlace() {
  window().On(WM_GETMINMAXINFO, [this](const Message& message) -> Answer {
    if (form_.smallest() == Size{}) return std::nullopt;
    RECT least = ToPixels(Rect{0, 0, form_.smallest().width, form_.smallest().height}, dpi());
    const auto style = [this](int which) { return static_cast<DWORD>(GetWindowLongPtrW(handle(), which)); };
    AdjustWindowRectExForDpi(&least, style(GWL_STYLE), FALSE, style(GWL_EXSTYLE), GetDpiForWindow(handle()));
    const RECT room = WorkArea();
    reinterpret_cast<MINMAXINFO*>(message.lparam)->ptMinTrackSize = {std::min(Width(least), Width(room)),
                                                                     std::min(Height(least), Height(room))};
    return 0;
  });
  window().On(WM_WINDOWPOSCHANGED, [this](const Message& message) -> Answer {
    const LRESULT result = window().Default(message);
    ReportPlace();
    return result;
  });
  window().On(WM_DPICHANGED, [this](const Message& message) -> Answer {
    MoveToScreen(*reinterpret_cast<const RECT*>(message.lparam));
    return 0;
  });
}

/// IsDialogMessage() turns Enter and Escape into commands; no control has the number of one of them.
void FormPeer::HandleKeys() {
  window().On(DM_GETDEFID, [](const Message&) -> Answer { return LRESULT{IDOK | (DC_HASDEFID << 16)}; });
  window().On(WM_COMMAND, [this](const Message& message) -> Answer {
    if (message.lparam != 0) return std::nullopt;
    LOWORD(message.wparam) == IDCANCEL ? form_.UserPressedEscape() : form_.UserPressedEnter();
    return 0;
  });
}

void FormPeer::HandleLook() {
  window().On(WM_ERASEBKGND, [this](const Message& message) -> Answer {
    RECT inside{};
    GetClientRect(handle(), &inside);
    FillBackground(reinterpret_cast<HDC>(message.wparam), inside, form_);
    return 1;
  });
  for (const UINT changed : std::array<UINT, 3>{WM_SETTINGCHANGE, WM_SYSCOLORCHANGE, WM_THEMECHANGED}) {
    window().On(changed, [this](const Message&) -> Answer {
      MirrorColours();
      return std::nullopt;
    });
  }
  window().On(Notice::kMessage, [this](const Message& message) -> Answer {
    if (toolkit().notice.Handle(LOWORD(message.lparam))) form_.Show();
    return 0;
  });
  window().On(TaskBar::ButtonMadeMessage(), [this](const Message&) -> Answer {
    MirrorValue();
    return 0;
  });
}

void FormPeer::FocusInside() {
  const Control* focused = form_.focused();
  const HWND wanted = focused != nullptr ? HandleOf(*focused) : nullptr;
  SetFocus(wanted != nullptr && IsWindowEnabled(wanted) ? wanted : handle());
}

void FormPeer::TakeFocus() {
  if (IsChild(handle(), GetFocus())) SetFocus(handle());
}

void FormPeer::ReportPlace() {
  if (IsIconic(handle())) return form_.UserSetState(WindowState::kMinimised);
  form_.UserSetState(WindowState::kNormal);
  RECT outer{};
  RECT inner{};
  GetWindowRect(handle(), &outer);
  GetClientRect(handle(), &inner);
  // Bounds that fall between two pixels stay as the program has set them.
  const RECT known = ToPixels(form_.bounds(), dpi());
  if (!EqualRect(&outer, &known)) form_.UserMoved(ToTwips(outer, dpi()));
  form_.InnerSizeIs({ToTwips(Width(inner), dpi()), ToTwips(Height(inner), dpi())});
  scroller_.Need({ToPixels(form_.smallest().width, dpi()), ToPixels(form_.smallest().height, dpi())});
}

/// To a place on a screen with other dots per inch: all inside is scaled again.
void FormPeer::MoveToScreen(const RECT& place) {
  SetWindowPos(handle(), nullptr, place.left, place.top, Width(place), Height(place),
               SWP_NOZORDER | SWP_NOACTIVATE);
  form_.ForEach([](Control& control) {
    if (control.peer() == nullptr) return;
    for (const Property scaled : {Property::kFont, Property::kBounds, Property::kHelp}) {
      control.peer()->Mirror(scaled);
    }
  });
  MirrorColours();
}

void FormPeer::MirrorText() { SetWindowTextW(handle(), ToWide(form_.text()).c_str()); }

void FormPeer::MirrorBounds() {
  if (!IsIconic(handle())) WindowPeer::MirrorBounds();
}

void FormPeer::MirrorVisible() { form_.visible() ? Show() : Hide(); }

void FormPeer::Show() {
  if (form_.modal() && !block_) {
    SetWindowLongPtrW(handle(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(HandleOf(*form_.owner())));
    block_.emplace(toolkit(), handle());
  }
  ComeForward();
}

/// While another program has the keyboard, the window comes to the front of this program's windows only.
void FormPeer::ComeForward() {
  const bool takes_keyboard = form_.style() != FormStyle::kPopUp && (IsInFront() || IsFirstWindow(toolkit()));
  if (IsWindowVisible(handle())) {
    SetWindowPos(handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    if (takes_keyboard) SetForegroundWindow(handle());
  } else {
    ShowWindow(handle(), takes_keyboard ? SW_SHOW : SW_SHOWNA);
  }
}

/// The others react again before this one goes: else the system would bring another program to the front.
void FormPeer::Hide() {
  block_.reset();
  ShowWindow(handle(), SW_HIDE);
}

void FormPeer::MirrorValue() {
  toolkit().task_bar.ShowProgress(handle(), form_.task_progress(), form_.task_state());
}

void FormPeer::MirrorState() {
  if (form_.state() == WindowState::kNormal && IsIconic(handle())) ShowWindow(handle(), SW_SHOWNOACTIVATE);
}

}  // namespace ui::win32
