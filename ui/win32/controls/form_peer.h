#pragma once

#include <optional>

#include "ui/form.h"
#include "ui/win32/controls/tool_tips.h"
#include "ui/win32/controls/window_peer.h"
#include "ui/win32/controls/window_scroller.h"
#include "ui/win32/dialogs/modal_block.h"

namespace ui::win32 {

/// A window on the screen.
class FormPeer : public WindowPeer {
 public:
  FormPeer(Form& form, Toolkit& toolkit);
  ~FormPeer() override;

  /// Takes the keyboard focus from the window's controls.
  void TakeFocus() override;

  Form& form() { return form_; }
  ToolTips& tool_tips() { return tool_tips_; }
  WindowScroller& scroller() { return scroller_; }
  /// The number of the next control: from 1,000 on in the order of making, so that tools can find them.
  int NextControlNumber() { return next_number_++; }

 protected:
  void MirrorText() override;
  void MirrorVisible() override;
  void MirrorBounds() override;
  void MirrorHelp() override {}
  void MirrorFont() override {}
  void MirrorValue() override;
  void MirrorState() override;
  void FocusArrived() override { FocusInside(); }

 private:
  void HandleActivation();
  void HandlePlace();
  void HandleKeys();
  void HandleLook();
  void Show();
  void Hide();
  void ComeForward();
  void FocusInside();
  void ReportPlace();
  void MoveToScreen(const RECT& place);

  Form& form_;
  ToolTips tool_tips_;
  WindowScroller scroller_;
  int next_number_ = 1000;
  std::optional<ModalBlock> block_;  ///< while it is shown as a dialog
};

}  // namespace ui::win32
