#pragma once

#include <optional>
#include <string>

#include "ui/controls.h"
#include "ui/dialogs.h"
#include "ui/form.h"
#include "ui/text_box.h"

namespace ui::win32 {

/// Asks for one line of text; the system has no such dialog.
class InputWindow : public Form {
 public:
  InputWindow(FrontEnd& front_end, const InputBox& box, const Form& owner);

  /// Returns once the user has answered. None: cancelled.
  std::optional<std::string> Ask(Form& owner);

 private:
  void PlaceControls();

  Label prompt_{this, "prompt"};
  TextBox answer_{this, "answer"};
  Button ok_{this, "ok"};
  Button cancel_{this, "cancel"};
  bool accepted_ = false;
};

}  // namespace ui::win32
