#pragma once

#include "ui/controls.h"
#include "ui/win32/controls/window_peer.h"

namespace ui::win32 {

/// The system's vertical scroll bar. The system says where the user wants the slider and leaves it where it
/// is; the control decides, and the slider goes where MirrorValue() says. Owned by the scroll bar, which
/// outlives it.
class ScrollBarPeer : public WindowPeer {
 public:
  ScrollBarPeer(ScrollBar& bar, Toolkit& toolkit);

 protected:
  void MirrorText() override {}
  void MirrorValue() override;

 private:
  /// Where the user wants the slider, by a code of WM_VSCROLL.
  int Wanted(UINT code) const;

  ScrollBar& bar_;
};

}  // namespace ui::win32
