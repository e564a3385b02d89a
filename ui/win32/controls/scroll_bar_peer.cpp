#include "ui/win32/controls/scroll_bar_peer.h"

#include <commctrl.h>

#include <algorithm>

namespace ui::win32 {
namespace {

constexpr WindowKind kScrollBar{WC_SCROLLBARW, WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS | SBS_VERT};
constexpr int kStepsOfAPage = 10;

/// The whole 32 bits; the message itself has 16 of them.
int SliderOf(HWND bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(bar, SB_CTL, &info);
  return info.nTrackPos;
}

}  // namespace

ScrollBarPeer::ScrollBarPeer(ScrollBar& bar, Toolkit& toolkit)
    : WindowPeer(bar, toolkit, kScrollBar), bar_(bar) {
  window().OnNotice(WM_VSCROLL, 0, [this](const Message& message) -> Answer {
    bar_.UserScrolled(Wanted(LOWORD(message.wparam)));
    return 0;
  });
}

int ScrollBarPeer::Wanted(UINT code) const {
  const int step = std::max(bar_.page() / kStepsOfAPage, 1);
  switch (code) {
    case SB_TOP:
      return 0;
    case SB_BOTTOM:
      return bar_.maximum();
    case SB_LINEUP:
      return bar_.value() - step;
    case SB_LINEDOWN:
      return bar_.value() + step;
    case SB_PAGEUP:
      return bar_.value() - bar_.page();
    case SB_PAGEDOWN:
      return bar_.value() + bar_.page();
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return SliderOf(handle());
    default:
      return bar_.value();
  }
}

/// The system's range ends a page after the last position.
void ScrollBarPeer::MirrorValue() {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMax = bar_.maximum() + bar_.page() - 1;
  info.nPage = static_cast<UINT>(bar_.page());
  info.nPos = bar_.value();
  SetScrollInfo(handle(), SB_CTL, &info, TRUE);
}

}  // namespace ui::win32
