#pragma once

#include "ui/controls.h"
#include "ui/win32/controls/late_focus_peer.h"

namespace ui::win32 {

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
