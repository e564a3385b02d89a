#pragma once

#include "ui/controls.h"
#include "ui/win32/controls/window_peer.h"

namespace ui::win32 {

/// The system's progress bar, in thousandths.
class ProgressBarPeer : public WindowPeer {
 public:
  ProgressBarPeer(ProgressBar& bar, Toolkit& toolkit);

 protected:
  void MirrorText() override {}
  void MirrorValue() override;

 private:
  ProgressBar& bar_;
};

}  // namespace ui::win32
