#pragma once

#include "ui/control.h"
#include "ui/win32/controls/window_peer.h"

namespace ui::win32 {

/// A thin border with the heading in it. The system's own group box is a button, which holds no controls
/// and draws no background of its own. Without a heading the border lies outside the area of the controls,
/// so that none of those that scroll covers it.
class FramePeer : public WindowPeer {
 public:
  FramePeer(Frame& frame, Toolkit& toolkit);

 protected:
  void MirrorText() override;
  void MirrorVisible() override;
  void MirrorBounds() override;
  void MirrorFont() override { MirrorColours(); }

 private:
  bool HasHeading() const { return !frame_.text().empty(); }
  COLORREF BorderColour() const;
  void HandleBorder();
  void Paint();
  void Draw(HDC context);

  Frame& frame_;
};

}  // namespace ui::win32
