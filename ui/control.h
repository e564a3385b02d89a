#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/geometry.h"
#include "ui/peer.h"

/// Controls without a toolkit. A control holds its own state; a front end may attach a peer that mirrors it.
/// Without peers the same windows run headless.
///
/// The rules of the events, for every control and front end:
///  - Only the user raises events; a change made by the program raises none. Exceptions: a control that
///    loses the focus raises on_lost_focus whoever moved it, a window raises on_resize and on_activate
///    whatever the cause, and timers tick by themselves.
///  - What the user cannot reach raises nothing: hidden and disabled controls, controls inside a hidden or
///    disabled frame or window, and everything behind an open dialog. Timers go on.
///  - A button acts on release of the left mouse button over it, on Space or Enter while it has the focus,
///    and on its access key, which also gives it the focus: all of them raise on_mouse_up, once.
///  - An event may arrive inside any call that runs pending events, and only there or in the event loop.
///    on_lost_focus and on_resize may also arrive inside the call that moves the focus or sets the size.
///  - A handler that still runs is not run again by its own control, unless the control allows it.
///  - Every window remembers its own focus: coming to the front or going behind another moves none. A
///    control that is hidden or disabled gives its focus up, to no other, and raises nothing then.
///  - A handler may be empty. A control lives longer than its running handlers.
namespace ui {

class Container;
class Form;
class FrontEnd;
class ScrollBar;

using Handler = std::function<void()>;

class Control {
 public:
  /// Joins the end of the parent's controls: the order of making is the tab order. `parent` outlives the
  /// control. Made while the parent is already on the screen, it gets there with its first change.
  Control(Container* parent, std::string name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// The name in the code, such as "cmdQuit" or "txbDirectory 0". Unique in its window.
  const std::string& name() const { return name_; }
  Container* parent() const { return parent_; }
  /// The window that the control is in.
  virtual Form& form();

  /// Text, caption or title, as it is read; access keys are not marked in it.
  const std::string& text() const { return text_; }
  virtual void SetText(std::string text);

  bool visible() const { return visible_; }
  void SetVisible(bool visible);
  bool enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  /// Whether the user can reach it: visible and enabled, and so is everything around it, with no dialog in
  /// the way.
  virtual bool reachable() const;

  const Rect& bounds() const { return bounds_; }
  void SetBounds(Rect bounds);
  Twips left() const { return bounds_.left; }
  Twips top() const { return bounds_.top; }
  Twips width() const { return bounds_.width; }
  Twips height() const { return bounds_.height; }
  void SetLeft(Twips left) { SetBounds({left, bounds_.top, bounds_.width, bounds_.height}); }
  void SetTop(Twips top) { SetBounds({bounds_.left, top, bounds_.width, bounds_.height}); }
  void SetWidth(Twips width) { SetBounds({bounds_.left, bounds_.top, width, bounds_.height}); }
  void SetHeight(Twips height) { SetBounds({bounds_.left, bounds_.top, bounds_.width, height}); }

  const std::string& tool_tip() const { return tool_tip_; }
  void SetToolTip(std::string text);
  /// What a screen reader calls the control; the text where none is set, but never what a text box holds.
  virtual const std::string& spoken_name() const { return spoken_name_.empty() ? text_ : spoken_name_; }
  void SetSpokenName(std::string text);
  /// What a screen reader says about the control beyond its name.
  const std::string& description() const { return description_; }
  void SetDescription(std::string text);
  /// The letter that reaches the control together with Alt; 0 for none. A label passes it to the next
  /// control.
  char access_key() const { return access_key_; }
  void SetAccessKey(char letter);

  /// None: the system's colours. Front ends keep the system's colours in its high-contrast mode.
  const std::optional<Colours>& colours() const { return colours_; }
  void SetColours(std::optional<Colours> colours);
  const Font& font() const { return font_; }
  void SetFont(Font font);

  /// Gives it the keyboard focus; nothing when it is not reachable. Returns whether it has it now.
  bool SetFocus();
  bool has_focus();
  /// Whether it can have the focus at all; a label, a frame or a progress bar cannot.
  virtual bool takes_focus() const { return true; }

  /// Lets a handler of this control be run again while it still runs, as for a button whose handler waits
  /// until the same button is pressed again.
  void AllowReentry() { reentry_allowed_ = true; }

  /// Draws at once what has changed.
  void Repaint();

  Handler on_lost_focus;
  Handler on_mouse_move;  ///< the pointer has come to the control or moved over it
  Handler on_mouse_leave;

  // --- For front ends.
  /// Makes the peer and mirrors every property into it.
  virtual void AttachPeer(FrontEnd& front_end);
  Peer* peer() const { return peer_.get(); }
  void UserMovedPointer();
  void UserMovedPointerAway();
  /// The focus has come to this control.
  void UserFocused();
  /// What a key does that means the control itself: a button is pressed, a box changes; others do nothing.
  virtual void UserKeyed() {}

 protected:
  virtual std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) = 0;
  void Mirror(Property property);
  /// Runs a handler when the control is reachable.
  void Raise(const Handler& handler);
  /// Runs a handler, unless it is empty or still runs.
  void Run(const Handler& handler);

 private:
  friend class Form;
  friend class TextBox;
  /// Stores a property and mirrors it when it is new.
  template <typename T>
  void Store(T& member, T value, Property property);

  Container* parent_;
  std::string name_;
  std::string text_;
  bool visible_ = true;
  bool enabled_ = true;
  bool attached_ = false;
  bool reentry_allowed_ = false;
  std::vector<const Handler*> running_;
  Rect bounds_;
  std::string tool_tip_;
  std::string spoken_name_;
  std::string description_;
  char access_key_ = 0;
  std::optional<Colours> colours_;
  Font font_;
  std::unique_ptr<Peer> peer_;
};

/// A control that holds others: a frame or a window.
class Container : public Control {
 public:
  using Control::Control;
  bool takes_focus() const override { return false; }
  /// The controls directly inside, in the order of making.
  const std::vector<Control*>& controls() const { return controls_; }
  /// Calls `visit` for every control inside, at any depth, in tab order.
  void ForEach(const std::function<void(Control&)>& visit) const;

  void AttachPeer(FrontEnd& front_end) override;

 private:
  friend class Control;
  std::vector<Control*> controls_;
};

/// A group of controls with a border and, when its text is not empty, a heading.
class Frame : public Container {
 public:
  using Container::Container;
  /// The bar that the mouse wheel moves while the pointer is over the frame; null for none.
  void SetScrollBar(ScrollBar* bar) { scroll_bar_ = bar; }
  const ScrollBar* scroll_bar() const { return scroll_bar_; }

  /// From a peer: the wheel was turned so many notches, positive ones away from the user.
  void UserTurnedWheel(double notches);

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  ScrollBar* scroll_bar_ = nullptr;
};

}  // namespace ui
