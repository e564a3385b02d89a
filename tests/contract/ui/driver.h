#pragma once

#include <functional>
#include <memory>
#include <string>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/front_end.h"
#include "ui/text_box.h"

namespace contract {

enum class Key { kSpace, kEnter, kEscape, kTab, kBackTab };

/// Acts like a user from the toolkit's side, whether the control is reachable or not: it is the front end
/// that has to refuse. What the user does has been handled when the call returns.
class Driver {
 public:
  virtual ~Driver() = default;
  virtual ui::FrontEnd& front_end() = 0;

  virtual void Click(ui::Control& control) = 0;
  virtual void Press(ui::Form& form, Key key) = 0;
  virtual void PressAccessKey(ui::Form& form, char letter) = 0;
  /// Replaces what the box holds by typing; "\n" is the Enter key.
  virtual void Type(ui::TextBox& box, const std::string& text) = 0;
  virtual void Choose(ui::DropDownList& list, int index) = 0;
  virtual void Drag(ui::ScrollBar& bar, int value) = 0;
  virtual void Close(ui::Form& form) = 0;
  virtual void Minimise(ui::Form& form) = 0;
  virtual void Resize(ui::Form& form, ui::Size outer) = 0;
  virtual void HoverOver(ui::Control& control) = 0;
  /// The user acts at the next chance that the program gives.
  virtual void Later(std::function<void()> act) = 0;
  /// So many milliseconds pass, with their timers.
  virtual void PassTime(int milliseconds) = 0;
  /// The user answers the next dialog: yes, or by leaving it.
  virtual void AnswerYes() = 0;
  virtual void AnswerByLeaving() = 0;
  virtual void AnswerText(const std::string& text) = 0;
  /// What a screen reader reads out.
  virtual std::string SpokenName(ui::Control& control) = 0;
};

/// A front end of its own for one test.
std::unique_ptr<Driver> MakeDriver();

}  // namespace contract
