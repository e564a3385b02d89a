#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/control.h"

namespace ui {

class Button;

enum class WindowState { kNormal, kMinimised };

/// How what the task bar shows is going.
enum class TaskState { kRunning, kPaused, kFailed };

/// What kind of window it is.
enum class FormStyle {
  kMain,    ///< on the task bar, can be minimised, fixed size
  kReport,  ///< on the task bar, can be minimised and sized by the user
  kDialog,  ///< belongs to another window, can be sized, not minimised
  kPopUp,   ///< without a border, above the others, never takes the focus
};

/// A key that moves through a list, or that types the name of an entry; or one that means the same wherever
/// the focus is: F3, F8, and Ctrl together with F, to find something.
enum class Key { kUp, kDown, kPageUp, kPageDown, kHome, kEnd, kCharacter, kF3, kF8, kFind };

struct KeyPress {
  Key key = Key::kCharacter;
  std::string character = {};  ///< of kCharacter: the one character typed; never a control character
  bool shift = false;          ///< of kF3 and kF8: held together with Shift
};

/// A window. Hidden until Show(). Its text is the title; its bounds are the outer ones on the screen.
class Form : public Container {
 public:
  Form(FrontEnd& front_end, std::string name, FormStyle style);
  ~Form() override;

  Form& form() override { return *this; }
  bool reachable() const override;
  FrontEnd& front_end() { return front_end_; }
  FormStyle style() const { return style_; }

  /// Shows the window and brings it to the front, also when it is minimised, making the peers at the first
  /// time. The first control that can have the focus gets it when none has. A pop-up takes no focus.
  void Show();
  void Hide();
  /// Shows the window above `owner` and returns when it is hidden again; the other windows do not react
  /// meanwhile.
  void ShowModal(Form& owner);
  bool modal() const { return modal_; }
  Form* owner() const { return owner_; }

  /// The size inside borders and title. Before the first Show() the whole size.
  Size inner() const;

  /// The inner size that the controls need, and below which the user cannot make the window; at first none.
  /// On a screen with less room the window is smaller, and scrolls. To be called before the first Show().
  void SetSmallest(Size inner);
  Size smallest() const { return smallest_; }

  WindowState state() const { return state_; }
  /// Brings a minimised window back without taking the focus from another program; a hidden one stays hidden.
  void Restore();

  /// Enter and Escape, where no other control takes them. May be null.
  void SetDefaultButton(Button* button) { default_button_ = button; }
  void SetCancelButton(Button* button) { cancel_button_ = button; }
  Button* default_button() const { return default_button_; }
  Button* cancel_button() const { return cancel_button_; }

  /// The control with the keyboard focus; null for none.
  Control* focused() const { return focused_; }
  /// The control that Tab reaches from this one, or from none when it is null; null when Tab reaches nothing.
  Control* AfterInTabOrder(const Control* from) const;
  /// The same for Shift and Tab.
  Control* BeforeInTabOrder(const Control* from) const;

  /// Progress on the system's task bar where it has one: 0 to 1; none takes it away.
  void SetTaskProgress(std::optional<double> fraction, TaskState state = TaskState::kRunning);
  std::optional<double> task_progress() const { return task_progress_; }
  TaskState task_state() const { return task_state_; }

  /// The user asks to close the window. When empty, the window is hidden.
  Handler on_close;
  Handler on_escape;    ///< Escape, while no cancel button can be reached
  Handler on_resize;    ///< the inner size has changed, by user or program
  Handler on_activate;  ///< the window has come to the front
  /// A key pressed without Alt and Ctrl, or repeated, while a button, a check box or no control has the
  /// focus: the others use these keys themselves. F3, F8 and Ctrl with F come wherever the focus is. Returns
  /// whether it did something; a space that it does not use presses the control.
  std::function<bool(const KeyPress&)> on_key;

  // --- From a peer.
  void UserClosed();
  void UserMoved(Rect bounds);  ///< by hand, or by the system; the outer bounds
  void InnerSizeIs(Size inner);
  void UserSetState(WindowState state) { state_ = state; }
  void UserActivated();
  /// A key that no control took itself. They return whether it did something.
  bool UserPressedEnter();   ///< the focused button, else the default button
  bool UserPressedEscape();  ///< the cancel button, else on_escape
  bool UserPressedAccessKey(char letter);
  /// Asked before the focused control gets the key. Returns whether the key is used up.
  bool UserPressedKey(const KeyPress& press);

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  friend class Control;
  void MoveFocusTo(Control* control);
  /// Takes the focus from a control that can no longer be reached.
  void DropLostFocus();
  /// The controls that Tab reaches, and `from`, in their order.
  std::vector<Control*> TabOrder(const Control* from) const;

  FrontEnd& front_end_;
  FormStyle style_;
  Size inner_;
  Size smallest_;
  WindowState state_ = WindowState::kNormal;
  bool modal_ = false;
  Form* owner_ = nullptr;
  Button* default_button_ = nullptr;
  Button* cancel_button_ = nullptr;
  Control* focused_ = nullptr;
  std::optional<double> task_progress_;
  TaskState task_state_ = TaskState::kRunning;
};

}  // namespace ui
