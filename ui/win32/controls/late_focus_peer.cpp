#include "ui/win32/controls/late_focus_peer.h"

#include <array>
#include <utility>

namespace ui::win32 {
namespace {

/// Posted to itself. The clicks of buttons are told by then.
constexpr UINT kReleased = WM_APP + 1;

}  // namespace

LateFocusPeer::LateFocusPeer(Control& control, Toolkit& toolkit, const WindowKind& kind)
    : WindowPeer(control, toolkit, kind) {
  for (const UINT pressed : std::array<UINT, 2>{WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}) {
    window().On(pressed, [this](const Message& message) -> Answer {
      in_press_ = true;
      const LRESULT result = window().Default(message);
      in_press_ = false;
      return result;
    });
  }
  window().On(WM_CAPTURECHANGED, [this](const Message&) -> Answer {
    ReportFocusSoon();
    return std::nullopt;
  });
  window().On(kReleased, [this](const Message&) -> Answer {
    if (!IsHeld()) ReportFocus();
    return 0;
  });
  window().On(WM_KILLFOCUS, [this](const Message&) -> Answer {
    focus_untold_ = false;
    return std::nullopt;
  });
}

void LateFocusPeer::FocusArrived() {
  focus_untold_ = in_press_;
  if (!in_press_) WindowPeer::FocusArrived();
}

void LateFocusPeer::ReportFocus() {
  if (std::exchange(focus_untold_, false)) WindowPeer::FocusArrived();
}

void LateFocusPeer::ReportFocusSoon() { PostMessageW(handle(), kReleased, 0, 0); }

}  // namespace ui::win32
