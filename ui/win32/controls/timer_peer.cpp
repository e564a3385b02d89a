#include "ui/win32/controls/timer_peer.h"

namespace ui::win32 {
namespace {

constexpr UINT_PTR kTick = 1;

}  // namespace

TimerPeer::TimerPeer(Timer& timer) : timer_(timer), window_({PlainWindowClass()}, HWND_MESSAGE, 0) {
  window_.On(WM_TIMER, [this](const Message&) -> Answer {
    timer_.Tick();
    return 0;
  });
}

void TimerPeer::MirrorValue() {
  if (timer_.running()) {
    SetTimer(window_.handle(), kTick, static_cast<UINT>(timer_.interval().count()), nullptr);
  } else {
    KillTimer(window_.handle(), kTick);
  }
}

}  // namespace ui::win32
