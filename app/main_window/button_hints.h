#pragma once

#include <string>

#include "report/frmPopUp.h"
#include "ui/controls.h"
#include "ui/form.h"

namespace app {

/// The hints of a window's buttons: each is shown in a pop-up below its button once the pointer has rested on
/// it, and spoken by screen readers as the button's description.
class ButtonHints {
 public:
  /// `window` must outlive the object.
  explicit ButtonHints(ui::Form& window);

  /// Gives a button of the window its hint. To be called once for each button, when its on_mouse_up is set;
  /// another description may follow later.
  void Add(ui::Button& button, std::string hint);

  void Hide() { pop_up_.Hide(); }
  report::frmPopUp& PopUpWindow() { return pop_up_; }

 private:
  void Button_MouseMove(const ui::Button& button);
  void Button_MouseLeave();
  void Show();
  /// A control's bounds as seen from the window's inner corner.
  ui::Rect PlaceInWindow(const ui::Control& control) const;

  ui::Form& window_;
  report::frmPopUp pop_up_;
  ui::Timer delay_;
  const ui::Button* under_pointer_ = nullptr;
};

}  // namespace app
