#pragma once

#include "ui/controls.h"
#include "ui/win32/controls/late_focus_peer.h"

namespace ui::win32 {

/// The system's push button: it reports a press by mouse, Space and Enter in one way.
class ButtonPeer : public LateFocusPeer {
 public:
  ButtonPeer(Button& button, Toolkit& toolkit);

 protected:
  void FocusArrived() override;

 private:
  void Mark(DWORD style);
};

}  // namespace ui::win32
