#pragma once

#include "ui/controls.h"
#include "ui/win32/controls/late_focus_peer.h"

namespace ui::win32 {

/// A drop-down list of the system, drawn by the program. Keys on the closed list choose at once, in an open
/// one they only move the mark; the wheel over a closed list without the focus is the window's.
class DropDownListPeer : public LateFocusPeer {
 public:
  DropDownListPeer(DropDownList& list, Toolkit& toolkit);

 protected:
  void MirrorText() override {}
  void MirrorItems() override;
  void MirrorValue() override;
  void MirrorBounds() override;
  void MirrorFont() override;
  std::optional<Colours> ColoursToDraw() const override;
  bool IsHeld() const override { return IsDropped(); }

 private:
  void HandleChoice();
  void Draw(const DRAWITEMSTRUCT& entry) const;
  int Selected() const { return static_cast<int>(window().Send(CB_GETCURSEL)); }
  bool IsDropped() const { return window().Send(CB_GETDROPPEDSTATE) != 0; }

  DropDownList& list_;
};

}  // namespace ui::win32
