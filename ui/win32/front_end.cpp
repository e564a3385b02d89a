#include "ui/win32/front_end.h"

#include "ui/win32/win32.h"

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include "ui/form.h"
#include "ui/text_box.h"
#include "ui/win32/controls/button_peer.h"
#include "ui/win32/controls/check_box_peer.h"
#include "ui/win32/controls/drop_down_list_peer.h"
#include "ui/win32/controls/form_peer.h"
#include "ui/win32/controls/frame_peer.h"
#include "ui/win32/controls/label_peer.h"
#include "ui/win32/controls/progress_bar_peer.h"
#include "ui/win32/controls/scroll_bar_peer.h"
#include "ui/win32/controls/text_box_peer.h"
#include "ui/win32/controls/timer_peer.h"
#include "ui/win32/desktop/clipboard.h"
#include "ui/win32/dialogs/dialogs.h"
#include "ui/win32/drawing/scale.h"
#include "ui/win32/keys.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

/// Events that come this many milliseconds after the call are left for the next one: a window that always
/// has something to draw would hold the caller for good.
constexpr DWORD kLongestRun = 50;

}  // namespace

bool Win32FrontEnd::HasDisplay() {
  USEROBJECTFLAGS flags{};
  // A failure leaves the question open; with windows nothing is hidden from a user who is there.
  return ::GetUserObjectInformationW(::GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) ==
             0 ||
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

Win32FrontEnd::Win32FrontEnd() {
  OleInitialize(nullptr);
  const INITCOMMONCONTROLSEX kinds{sizeof kinds, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&kinds);
  toolkit_ = std::make_unique<Toolkit>();
  dialogs_ = std::make_unique<Win32Dialogs>(*this, *toolkit_);
  clipboard_ = std::make_unique<Win32Clipboard>();
}

Win32FrontEnd::~Win32FrontEnd() {
  clipboard_.reset();
  dialogs_.reset();
  toolkit_.reset();
  MSG quit{};
  PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
  OleUninitialize();
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(Form& form) {
  return std::make_unique<FormPeer>(form, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(Frame& frame) {
  return std::make_unique<FramePeer>(frame, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(Button& button) {
  return std::make_unique<ButtonPeer>(button, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(Label& label) {
  return std::make_unique<LabelPeer>(label, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(CheckBox& box) {
  return std::make_unique<CheckBoxPeer>(box, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(DropDownList& list) {
  return std::make_unique<DropDownListPeer>(list, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(ProgressBar& bar) {
  return std::make_unique<ProgressBarPeer>(bar, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(ScrollBar& bar) {
  return std::make_unique<ScrollBarPeer>(bar, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(TextBox& box) {
  return std::make_unique<TextBoxPeer>(box, *toolkit_);
}

std::unique_ptr<Peer> Win32FrontEnd::CreatePeer(Timer& timer) { return std::make_unique<TimerPeer>(timer); }

/// WM_QUIT needs nothing here: every loop asks quitting().
void Win32FrontEnd::Handle(MSG& message) {
  if (message.message == WM_QUIT || HandleKey(message, *toolkit_)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void Win32FrontEnd::HandleNext() {
  MSG message{};
  GetMessageW(&message, nullptr, 0, 0);
  Handle(message);
}

void Win32FrontEnd::RunPendingEvents() {
  const DWORD begin = GetTickCount();
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    Handle(message);
    if (static_cast<int>(message.time - begin) > static_cast<int>(kLongestRun)) return;
  }
}

void Win32FrontEnd::WaitForEvents(std::chrono::milliseconds longest) {
  if (longest.count() > 0) {
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(longest.count()), QS_ALLINPUT,
                                MWMO_INPUTAVAILABLE);
  }
  RunPendingEvents();
}

int Win32FrontEnd::Run() {
  while (!quitting()) HandleNext();
  return exit_code_.value_or(0);
}

void Win32FrontEnd::Quit(int exit_code) {
  exit_code_ = exit_code;
  PostQuitMessage(exit_code);
}

/// A window that the system could not make, or has taken away, nobody can answer.
void Win32FrontEnd::RunModal(Form& form) {
  while (form.visible() && HandleOf(form) != nullptr && !quitting()) HandleNext();
}

void Win32FrontEnd::Notify(Form& form, const std::string& title, const std::string& text) {
  const HWND window = HandleOf(form);
  DWORD process = 0;
  GetWindowThreadProcessId(GetForegroundWindow(), &process);
  if (window == nullptr || process == GetCurrentProcessId()) return;
  FLASHWINFO until_in_front{sizeof until_in_front, window, FLASHW_TRAY | FLASHW_TIMERNOFG, 0, 0};
  FlashWindowEx(&until_in_front);
  toolkit_->notice.Show(window, title, text);
}

/// "explore" is known for folders only: a path that has become a file is not run.
void Win32FrontEnd::OpenFolder(const std::string& path) {
  ShellExecuteW(nullptr, L"explore", ToWide(path).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

Size Win32FrontEnd::screen() const {
  const RECT area = WorkArea();
  const UINT dpi = DotsPerInch();
  return {ToTwips(Width(area), dpi), ToTwips(Height(area), dpi)};
}

Twips Win32FrontEnd::TextWidth(const std::string& text, const Font& font) const {
  const UINT dpi = DotsPerInch();
  return ToTwips(MeasureText(ToWide(text), toolkit_->fonts.Get(font, dpi)).cx, dpi);
}

Dialogs& Win32FrontEnd::dialogs() { return *dialogs_; }
Clipboard& Win32FrontEnd::clipboard() { return *clipboard_; }

}  // namespace ui::win32
