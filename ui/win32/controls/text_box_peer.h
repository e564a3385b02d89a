#pragma once

#include <string_view>

#include "ui/text_box.h"
#include "ui/win32/controls/window_peer.h"

namespace ui::win32 {

/// The system's edit control: of one line, in the middle of its height, or of many. It has a second copy of
/// the text, which is the control's, and it alone knows what the user has selected. What the user types goes
/// to the control at once, what the program writes never comes back. Owned by the text box, which outlives
/// it.
class TextBoxPeer : public WindowPeer {
 public:
  TextBoxPeer(TextBox& box, Toolkit& toolkit);

  void Append(std::string_view text) override;
  Selection UserSelection() const override;

 protected:
  void MirrorText() override;
  void MirrorEnabled() override;
  void MirrorFont() override;
  void MirrorSelection() override;
  std::optional<Colours> ColoursToDraw() const override;
  void FocusArrived() override;

 private:
  void HandleEditing();
  void HandleKeys();
  void HandleBorder();
  void RedrawBorder();
  std::wstring Shown() const;
  /// Brings the caret into view, and the beginnings of the lines.
  void ScrollToCaret();
  void ScrollToLastLine();

  TextBox& box_;
  bool by_program_ = false;  ///< the text is being written here, which the system reports like typing
};

}  // namespace ui::win32
