#include "ui/win32/controls/text_box_peer.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "ui/win32/controls/line_placement.h"
#include "ui/win32/drawing/paint.h"
#include "ui/win32/drawing/scale.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

constexpr DWORD kAnyEdit = WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS;
constexpr WPARAM kCtrlA = 1;

WindowKind KindOf(const TextBox& box) {
  if (box.lines() == TextBox::Lines::kOne) return {WC_EDITW, kAnyEdit | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
  const DWORD to_the_side = box.wraps() ? 0 : WS_HSCROLL | ES_AUTOHSCROLL;
  return {WC_EDITW, kAnyEdit | to_the_side | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_NOHIDESEL,
          WS_EX_CLIENTEDGE};
}

Colours SystemColours() {
  const auto from = [](COLORREF colour) {
    return Colour{GetRValue(colour), GetGValue(colour), GetBValue(colour)};
  };
  return {from(GetSysColor(COLOR_WINDOW)), from(GetSysColor(COLOR_WINDOWTEXT))};
}

}  // namespace

TextBoxPeer::TextBoxPeer(TextBox& box, Toolkit& toolkit) : WindowPeer(box, toolkit, KindOf(box)), box_(box) {
  window().Send(EM_SETLIMITTEXT, 0);  // else text beyond 30,000 characters would be lost
  HandleEditing();
  HandleKeys();
  HandleBorder();
  if (box.lines() == TextBox::Lines::kOne) {
    PlaceLineInTheMiddle(window(), [this] { return static_cast<int>(MeasureText(L"M", font()).cy); });
  }
}

void TextBoxPeer::HandleEditing() {
  window().OnNotice(WM_COMMAND, EN_CHANGE, [this](const Message&) -> Answer {
    if (!by_program_) box_.UserEdited(base::Narrow(Shown()));
    return 0;
  });
  for (const UINT released : std::array<UINT, 2>{WM_LBUTTONUP, WM_KEYUP}) {
    window().On(released, [this](const Message& message) -> Answer {
      const LRESULT result = window().Default(message);  // only then the selection is final
      box_.UserReleasedMouse();
      return result;
    });
  }
}

/// The system's own answer would make Escape close the window from a box of many lines, and hand over Enter
/// in one that is read-only.
void TextBoxPeer::HandleKeys() {
  window().On(WM_GETDLGCODE, [this](const Message& message) -> Answer {
    constexpr LRESULT kAny = DLGC_WANTCHARS | DLGC_WANTARROWS;
    if (box_.lines() == TextBox::Lines::kOne) return kAny | DLGC_HASSETSEL;
    const auto* key = reinterpret_cast<const MSG*>(message.lparam);
    const bool enter = key != nullptr && key->wParam == VK_RETURN;
    return enter && !box_.read_only() ? kAny | DLGC_WANTMESSAGE : kAny;
  });
  window().On(WM_CHAR, [this](const Message& message) -> Answer {
    if (message.wparam != kCtrlA) return std::nullopt;
    window().Send(EM_SETSEL, 0, -1);
    return 0;
  });
}

void TextBoxPeer::HandleBorder() {
  window().On(WM_NCPAINT, [this](const Message& message) -> Answer {
    const LRESULT result = window().Default(message);
    const bool one_line = box_.lines() == TextBox::Lines::kOne;
    if (one_line) FillAroundLine(handle());
    RECT outer{};
    GetWindowRect(handle(), &outer);
    OffsetRect(&outer, -outer.left, -outer.top);
    const HDC context = GetWindowDC(handle());
    DrawBoxBorder(context, outer, box_, handle(), one_line && box_.read_only() ? Line::kFaint : Line::kClear);
    ReleaseDC(handle(), context);
    return result;
  });
  window().On(WM_KILLFOCUS, [this](const Message&) -> Answer {
    RedrawBorder();
    return std::nullopt;
  });
}

/// Later, when the system has done its part.
void TextBoxPeer::RedrawBorder() { RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME); }

void TextBoxPeer::FocusArrived() {
  RedrawBorder();
  WindowPeer::FocusArrived();
}

std::wstring TextBoxPeer::Shown() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(handle())) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(handle(), text.data(), static_cast<int>(text.size()))));
  return text;
}

void TextBoxPeer::MirrorText() {
  const std::wstring text = ToWide(box_.text());
  if (text == Shown()) return;  // the caret stays
  by_program_ = true;
  SetWindowTextW(handle(), text.c_str());
  by_program_ = false;
}

void TextBoxPeer::Append(std::string_view text) {
  const auto end = static_cast<WPARAM>(GetWindowTextLengthW(handle()));
  by_program_ = true;
  window().Send(EM_SETSEL, end, static_cast<LPARAM>(end));
  window().Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
  by_program_ = false;
  ScrollToCaret();
}

void TextBoxPeer::ScrollToCaret() {
  window().Send(EM_SCROLLCARET);
  if (box_.lines() == TextBox::Lines::kOne) return;
  if (GetScrollPos(handle(), SB_HORZ) != 0) window().Send(WM_HSCROLL, SB_LEFT);
  if (box_.wanted_selection().start == box_.length()) ScrollToLastLine();
}

/// The last line that holds something is to be at the bottom, not the empty one after its end.
void TextBoxPeer::ScrollToLastLine() {
  RECT inside{};
  window().Send(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&inside));
  const int in_view = Height(inside) / std::max<int>(MeasureText(L"M", font()).cy, 1);
  const int lines = static_cast<int>(window().Send(EM_GETLINECOUNT)) - (box_.text().ends_with('\n') ? 1 : 0);
  const int first = static_cast<int>(window().Send(EM_GETFIRSTVISIBLELINE));
  window().Send(EM_LINESCROLL, 0, LPARAM{std::max(lines - in_view, 0)} - first);
}

void TextBoxPeer::MirrorEnabled() {
  WindowPeer::MirrorEnabled();
  window().Send(EM_SETREADONLY, box_.read_only() ? TRUE : FALSE);
  MirrorColours();
}

void TextBoxPeer::MirrorFont() {
  WindowPeer::MirrorFont();
  SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void TextBoxPeer::MirrorSelection() {
  const Selection wanted = box_.wanted_selection();
  const std::size_t start = UnitsOf(box_.text(), wanted.start);
  const std::size_t end = UnitsOf(box_.text(), wanted.start + wanted.length);
  window().Send(EM_SETSEL, start, static_cast<LPARAM>(end));
  ScrollToCaret();
}

Selection TextBoxPeer::UserSelection() const {
  DWORD start = 0;
  DWORD end = 0;
  window().Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  const std::size_t before = CharactersOf(box_.text(), start);
  return {before, CharactersOf(box_.text(), end) - before};
}

/// A box that can only be read would be as grey as one that is disabled.
std::optional<Colours> TextBoxPeer::ColoursToDraw() const {
  const std::optional<Colours> own = OwnColours(box_);
  if (own || !box_.read_only() || !IsWindowEnabled(handle())) return own;
  return SystemColours();
}

}  // namespace ui::win32
