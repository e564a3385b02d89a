#pragma once

#include "ui/controls.h"
#include "ui/win32/controls/window_peer.h"

namespace ui::win32 {

/// A text that takes clicks. One without room for a second line ends in an ellipsis, a path in its last name;
/// in a pop-up it keeps off the window's sides.
class LabelPeer : public WindowPeer {
 public:
  LabelPeer(Label& label, Toolkit& toolkit);

 protected:
  void MirrorText() override;
  void MirrorBounds() override;
  void MirrorFont() override;

 private:
  void MirrorStyle();
  LONG_PTR Ellipsis() const;

  Label& label_;
};

}  // namespace ui::win32
