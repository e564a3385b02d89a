#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/front_end.h"
#include "ui/text_box.h"

namespace contract {

using namespace std::chrono_literals;

// A key is the character that it types, or one of these.
constexpr char kTab = '\t';
constexpr char kEnter = '\r';
constexpr char kDown = '\x19';
constexpr char kEscape = '\x1B';
constexpr char kSpace = ' ';

/// What is held down together with a key.
enum class Held { kNothing, kShift, kAlt };

/// Acts like a user from the toolkit's side, whether the control is reachable or not: it is the front end
/// that has to refuse. What the user does has been handled when the call returns.
class Driver {
 public:
  virtual ~Driver() = default;
  virtual ui::FrontEnd& front_end() = 0;

  virtual void Click(ui::Control& control) = 0;
  /// Presses the mouse on the control and releases it beside it.
  virtual void DragOff(ui::Control& control) = 0;
  virtual void HoverOver(ui::Control& control) = 0;
  virtual void TurnWheel(ui::Control& control, int notches) = 0;
  virtual void Press(ui::Form& form, char key, Held held) = 0;
  void Press(ui::Form& form, char key) { Press(form, key, Held::kNothing); }
  /// Replaces what the box holds by typing; "\n" is the Enter key.
  virtual void Type(ui::TextBox& box, const std::string& text) = 0;
  virtual void Choose(ui::DropDownList& list, int index) {
    list.SetFocus();
    for (int step = list.list_index(); step < index; ++step) Press(list.form(), kDown);
  }
  virtual void Drag(ui::ScrollBar& bar, int value) = 0;
  virtual void Close(ui::Form& form) = 0;
  virtual void Minimise(ui::Form& form) = 0;
  virtual void Resize(ui::Form& form, ui::Size outer) = 0;
  /// So many milliseconds pass, with their timers.
  virtual void PassTime(std::chrono::milliseconds time) = 0;

  /// Whether one of the front end's own dialogs is open, and the user's answers to it.
  virtual bool DialogIsOpen() = 0;
  virtual void AnswerYes() = 0;
  virtual void AnswerByEnter() = 0;
  virtual void AnswerText(const std::string& text) = 0;
  virtual void AnswerPath(const std::string& path) = 0;
  virtual void LeaveDialog() = 0;

  /// What a screen reader reads out.
  virtual std::string SpokenName(ui::Control& control) = 0;
};

/// A front end of its own for one test.
std::unique_ptr<Driver> MakeDriver();

}  // namespace contract
