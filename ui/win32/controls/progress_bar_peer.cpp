#include "ui/win32/controls/progress_bar_peer.h"

#include <commctrl.h>

namespace ui::win32 {
namespace {

constexpr WindowKind kProgressBar{PROGRESS_CLASSW, WS_CHILD | WS_CLIPSIBLINGS | PBS_SMOOTH};
constexpr int kSteps = 1000;

}  // namespace

ProgressBarPeer::ProgressBarPeer(ProgressBar& bar, Toolkit& toolkit)
    : WindowPeer(bar, toolkit, kProgressBar), bar_(bar) {
  window().Send(PBM_SETRANGE32, 0, kSteps);
}

void ProgressBarPeer::MirrorValue() {
  window().Send(PBM_SETPOS, static_cast<WPARAM>(bar_.fraction() * kSteps));
}

}  // namespace ui::win32
