#pragma once

#include "ui/controls.h"
#include "ui/win32/window_peer.h"

namespace ui::win32 {

class CheckBoxPeer : public WindowPeer {
 public:
  CheckBoxPeer(CheckBox& box, Toolkit& toolkit);

 protected:
  void MirrorValue() override;

 private:
  CheckBox& box_;
};

}  // namespace ui::win32
