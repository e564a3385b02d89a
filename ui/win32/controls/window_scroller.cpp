#include "ui/win32/controls/window_scroller.h"

#include <algorithm>

#include "ui/win32/drawing/scale.h"

namespace ui::win32 {
namespace {

constexpr int kLineInPixels = 30;

SIZE InnerSize(HWND window) {
  RECT inside{};
  GetClientRect(window, &inside);
  return {Width(inside), Height(inside)};
}

/// The bar goes by itself while all is in view.
void SetBar(HWND window, int bar, LONG needed, LONG in_view, LONG moved) {
  const SCROLLINFO info{sizeof info,
                        SIF_RANGE | SIF_PAGE | SIF_POS,
                        0,
                        static_cast<int>(needed) - 1,
                        static_cast<UINT>(in_view),
                        static_cast<int>(moved),
                        0};
  SetScrollInfo(window, bar, &info, TRUE);
}

/// Where `view` pixels from `now` on have to begin so that they hold those from `begin` to `end`.
LONG Shifted(LONG now, LONG view, LONG begin, LONG end) {
  return std::min(std::max(now, end - view), std::max(begin, LONG{0}));
}

}  // namespace

WindowScroller::WindowScroller(NativeWindow& window) : window_(window) {
  window_.On(WM_VSCROLL, [this](const Message& message) -> Answer {
    if (message.lparam != 0) return std::nullopt;
    Scroll(message, SB_VERT, &POINT::y);
    return 0;
  });
  window_.On(WM_HSCROLL, [this](const Message& message) -> Answer {
    if (message.lparam != 0) return std::nullopt;
    Scroll(message, SB_HORZ, &POINT::x);
    return 0;
  });
  window_.On(WM_MOUSEWHEEL, [this](const Message& message) -> Answer {
    const int notches = GET_WHEEL_DELTA_WPARAM(message.wparam);
    MoveTo({moved_.x, moved_.y - MulDiv(notches, 3 * kLineInPixels, WHEEL_DELTA)});
    return 0;
  });
}

POINT WindowScroller::Furthest() const {
  const SIZE inner = InnerSize(window_.handle());
  return {std::max(needed_.cx - inner.cx, LONG{0}), std::max(needed_.cy - inner.cy, LONG{0})};
}

void WindowScroller::Need(SIZE size) {
  const bool fits = Furthest().x == 0 && Furthest().y == 0;
  needed_ = size;
  const POINT furthest = Furthest();
  if (fits && furthest.x == 0 && furthest.y == 0) return;
  const SIZE inner = InnerSize(window_.handle());
  SetBar(window_.handle(), SB_VERT, needed_.cy, inner.cy, moved_.y);
  SetBar(window_.handle(), SB_HORZ, needed_.cx, inner.cx, moved_.x);
  MoveTo(moved_);
}

void WindowScroller::Scroll(const Message& message, int bar, LONG POINT::*along) {
  SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(window_.handle(), bar, &info);
  POINT to = moved_;
  switch (LOWORD(message.wparam)) {
    case SB_LINEUP:
      to.*along -= kLineInPixels;
      break;
    case SB_LINEDOWN:
      to.*along += kLineInPixels;
      break;
    case SB_PAGEUP:
      to.*along -= static_cast<LONG>(info.nPage);
      break;
    case SB_PAGEDOWN:
      to.*along += static_cast<LONG>(info.nPage);
      break;
    case SB_THUMBTRACK:
      to.*along = info.nTrackPos;
      break;
    default:
      return;
  }
  MoveTo(to);
}

void WindowScroller::MoveTo(POINT to) {
  const POINT furthest = Furthest();
  to = {std::clamp(to.x, LONG{0}, furthest.x), std::clamp(to.y, LONG{0}, furthest.y)};
  if (to.x == moved_.x && to.y == moved_.y) return;
  ScrollWindowEx(window_.handle(), static_cast<int>(moved_.x - to.x), static_cast<int>(moved_.y - to.y),
                 nullptr, nullptr, nullptr, nullptr, SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
  moved_ = to;
  SetScrollPos(window_.handle(), SB_VERT, static_cast<int>(to.y), TRUE);
  SetScrollPos(window_.handle(), SB_HORZ, static_cast<int>(to.x), TRUE);
}

void WindowScroller::BringIntoView(HWND control) {
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, window_.handle(), reinterpret_cast<POINT*>(&place), 2);
  OffsetRect(&place, static_cast<int>(moved_.x), static_cast<int>(moved_.y));
  const SIZE inner = InnerSize(window_.handle());
  MoveTo({Shifted(moved_.x, inner.cx, place.left, place.right),
          Shifted(moved_.y, inner.cy, place.top, place.bottom)});
}

}  // namespace ui::win32
