#pragma once

#include "ui/controls.h"
#include "ui/win32/controls/late_focus_peer.h"

namespace ui::win32 {

/// A check box of the system that ticks itself only as its control does: a click is told, and what comes of
/// it is shown. Its square gets a border that can be seen where the theme's is too pale.
class CheckBoxPeer : public LateFocusPeer {
 public:
  CheckBoxPeer(CheckBox& box, Toolkit& toolkit);

 protected:
  void MirrorValue() override;

 private:
  void StrengthenBorder(HDC context) const;

  CheckBox& box_;
};

}  // namespace ui::win32
