#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"

namespace ui {

/// A push button.
class Button : public Control {
 public:
  using Control::Control;
  Handler on_mouse_up;

  /// From a peer: the user pressed it by mouse or key.
  void UserPressed() { Raise(on_mouse_up); }
  void UserKeyed() override { UserPressed(); }

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;
};

/// A text that the user only reads. Breaks lines at its width and at line ends; where there is no room for a
/// second line, an ellipsis stands for what does not fit: the end of a text, the middle of a path.
class Label : public Control {
 public:
  using Control::Control;
  Handler on_mouse_up;

  void UserPressed() { Raise(on_mouse_up); }
  bool takes_focus() const override { return false; }

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;
};

/// A box that is ticked (1) or clear (0).
class CheckBox : public Control {
 public:
  using Control::Control;
  int value() const { return value_; }
  void SetValue(int value);
  Handler on_click;

  /// From a peer: the user changed it.
  void UserTicked(int value);
  void UserKeyed() override { UserTicked(value_ == 0 ? 1 : 0); }

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  int value_ = 0;
};

/// A list of texts that drops down, of which one or none is selected.
class DropDownList : public Control {
 public:
  using Control::Control;
  const std::vector<std::string>& items() const { return items_; }
  void SetItems(std::vector<std::string> items);  ///< selects none
  void RemoveItem(int index);                     ///< selects none when the selected one goes
  void Clear() { SetItems({}); }
  int count() const { return static_cast<int>(items_.size()); }
  /// From 0; -1: none is selected.
  int list_index() const { return list_index_; }
  /// Returns false and changes nothing for an index below -1 or beyond the last entry.
  bool SetListIndex(int index);
  Handler on_click;
  /// Whether the user is done with the choice that raised on_click: made in the open list. Keys on the closed
  /// list pass through its entries, and the next key goes on from there.
  bool choice_finished() const { return choice_finished_; }

  enum class Choice { kFinished, kPassing };
  void UserSelected(int index, Choice choice = Choice::kFinished);

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  std::vector<std::string> items_;
  int list_index_ = -1;
  bool choice_finished_ = true;
};

/// How far something has come. Not reachable by key.
class ProgressBar : public Control {
 public:
  using Control::Control;
  /// 0 to 1.
  double fraction() const { return fraction_; }
  void SetFraction(double fraction);  ///< values outside are brought to the nearer end
  bool takes_focus() const override { return false; }

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  double fraction_ = 0;
};

/// A vertical bar that scrolls something: it is between 0 and its maximum.
class ScrollBar : public Control {
 public:
  using Control::Control;
  int maximum() const { return maximum_; }
  /// How much is in view: the length of the slider, and the step of its page keys.
  int page() const { return page_; }
  /// Neither is negative; the value is brought into the new range.
  void SetRange(int maximum, int page);
  int value() const { return value_; }
  void SetValue(int value);  ///< brought into the range
  Handler on_change;         ///< the user moved it

  void UserScrolled(int value);

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  int maximum_ = 0;
  int page_ = 1;
  int value_ = 0;
};

/// Runs its handler every interval while it is running, whether its window is shown or not. Not seen. Never
/// runs late ticks in a row.
class Timer : public Control {
 public:
  using Control::Control;
  std::chrono::milliseconds interval() const { return interval_; }
  bool running() const { return running_; }
  bool takes_focus() const override { return false; }
  /// Starts, or starts over with a new interval, which is positive.
  void Start(std::chrono::milliseconds interval);
  void Stop();
  Handler on_timer;

  /// From a peer: the interval has passed.
  void Tick();

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  std::chrono::milliseconds interval_{0};
  bool running_ = false;
};

}  // namespace ui
