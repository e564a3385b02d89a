#pragma once

#include "ui/win32/controls/window_peer.h"

namespace ui::win32 {

/// What the mouse holds for a while: a pressed button or check box, an open list. The system gives it the
/// focus as soon as the mouse is pressed; that is told when it is let go, but before what the user has done
/// with it. The control that loses the focus may show a message then: one that opened in between would take
/// the release of the mouse away, and with it the click.
class LateFocusPeer : public WindowPeer {
 protected:
  LateFocusPeer(Control& control, Toolkit& toolkit, const WindowKind& kind);
  void FocusArrived() override;

  /// Whether it goes on without the mouse.
  virtual bool IsHeld() const { return false; }
  /// Tells of a focus that came by the mouse, unless it has gone again.
  void ReportFocus();
  /// The same when the present message has been handled.
  void ReportFocusSoon();

 private:
  bool in_press_ = false;      ///< while the system handles the pressing of the mouse
  bool focus_untold_ = false;  ///< the focus came by a mouse that is still pressed
};

}  // namespace ui::win32
