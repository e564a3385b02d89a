#include "ui/win32/controls/frame_peer.h"

#include <oleacc.h>

#include "ui/win32/drawing/paint.h"
#include "ui/win32/drawing/scale.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

constexpr WindowKind kFrame{nullptr, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT};
constexpr Twips kRound = 120;
constexpr Twips kTitleIndent = 135;

WindowKind Kind() { return {PlainWindowClass(), kFrame.style, kFrame.extended_style}; }

void DrawBorder(HDC context, const RECT& border, COLORREF colour, int round) {
  const base::Handle<base::ClosedBy<HPEN, &DeleteObject>> pen(CreatePen(PS_SOLID, 1, colour));
  const HGDIOBJ pen_before = SelectObject(context, pen.get());
  const HGDIOBJ brush_before = SelectObject(context, GetStockObject(NULL_BRUSH));
  RoundRect(context, border.left, border.top, border.right, border.bottom, round, round);
  SelectObject(context, brush_before);
  SelectObject(context, pen_before);
}

}  // namespace

FramePeer::FramePeer(Frame& frame, Toolkit& toolkit) : WindowPeer(frame, toolkit, Kind()), frame_(frame) {
  toolkit.accessibility.SetRole(handle(), ROLE_SYSTEM_GROUPING);
  HandleBorder();
  window().On(WM_ERASEBKGND, [this](const Message& message) -> Answer {
    RECT inside{};
    GetClientRect(handle(), &inside);
    FillBackground(reinterpret_cast<HDC>(message.wparam), inside, frame_);
    return 1;
  });
  window().On(WM_PAINT, [this](const Message&) -> Answer {
    Paint();
    return 0;
  });
  window().On(WM_MOUSEWHEEL, [this](const Message& message) -> Answer {
    frame_.UserTurnedWheel(static_cast<double>(GET_WHEEL_DELTA_WPARAM(message.wparam)) / WHEEL_DELTA);
    return 0;
  });
}

void FramePeer::HandleBorder() {
  window().On(WM_NCCALCSIZE, [this](const Message& message) -> Answer {
    const LRESULT result = window().Default(message);
    if (!HasHeading())
      InflateRect(reinterpret_cast<RECT*>(message.lparam), -1, -1);  // also where more follows it
    return result;
  });
  window().On(WM_NCPAINT, [this](const Message&) -> Answer {
    if (HasHeading()) return std::nullopt;
    RECT outer{};
    GetWindowRect(handle(), &outer);
    OffsetRect(&outer, -outer.left, -outer.top);
    const HDC context = GetWindowDC(handle());
    FrameRect(context, &outer, UseColours(context, BorderColour(), BorderColour()));
    ReleaseDC(handle(), context);
    return 0;
  });
}

COLORREF FramePeer::BorderColour() const {
  const std::optional<Colours> colours = ColoursToDraw();
  return colours ? LineColour(*colours, Line::kClear) : GetSysColor(COLOR_BTNTEXT);
}

void FramePeer::MirrorText() {
  WindowPeer::MirrorText();
  SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  InvalidateRect(handle(), nullptr, TRUE);
}

/// One that is shown later lies over what it covers.
void FramePeer::MirrorVisible() {
  if (frame_.visible() && IsWindowVisible(GetAncestor(handle(), GA_ROOT))) {
    SetWindowPos(handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  WindowPeer::MirrorVisible();
}

/// The system keeps what is in a window that it sizes, and so the border of the old size.
void FramePeer::MirrorBounds() {
  WindowPeer::MirrorBounds();
  InvalidateRect(handle(), nullptr, TRUE);
}

void FramePeer::Paint() {
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(handle(), &paint);
  const HGDIOBJ font_before = SelectObject(context, font());
  if (HasHeading()) Draw(context);
  SelectObject(context, font_before);
  EndPaint(handle(), &paint);
}

void FramePeer::Draw(HDC context) {
  const std::wstring heading = ToCaption(frame_.text(), frame_.access_key());
  RECT text{};
  DrawTextW(context, heading.c_str(), -1, &text, DT_SINGLELINE | DT_CALCRECT);
  OffsetRect(&text, ToPixels(kTitleIndent, dpi()), 0);
  RECT border{};
  GetClientRect(handle(), &border);
  border.top += Height(text) / 2;
  DrawBorder(context, border, BorderColour(), ToPixels(kRound, dpi()));
  InflateRect(&text, ToPixels(kTitleIndent, dpi()) / 3, 0);
  FillBackground(context, text, frame_);
  if (!ColoursToDraw()) SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
  if (!IsWindowEnabled(handle())) SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
  SetBkMode(context, TRANSPARENT);
  DrawTextW(context, heading.c_str(), -1, &text, DT_SINGLELINE | DT_CENTER);
}

}  // namespace ui::win32
