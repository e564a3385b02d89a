#include "ui/form.h"

#include <algorithm>
#include <utility>

#include "base/ascii_case.h"
#include "ui/controls.h"
#include "ui/front_end.h"

namespace ui {

Form::Form(FrontEnd& front_end, std::string name, FormStyle style)
    : Container(nullptr, std::move(name)), front_end_(front_end), style_(style) {
  visible_ = false;
}

/// The peer may still speak of the window when it goes.
Form::~Form() { peer_.reset(); }

std::unique_ptr<Peer> Form::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }

bool Form::reachable() const { return Container::reachable() && !front_end_.Blocks(*this); }

Size Form::inner() const { return peer() != nullptr ? inner_ : Size{width(), height()}; }

void Form::SetSmallest(Size inner) {
  smallest_ = inner;
  Mirror(Property::kBounds);
}

void Form::Show() {
  AttachPeer(front_end_);
  visible_ = true;
  Restore();
  Mirror(Property::kVisible);
  if (style_ == FormStyle::kPopUp || (focused_ != nullptr && focused_->reachable())) return;
  if (Control* first = AfterInTabOrder(nullptr)) first->SetFocus();
}

void Form::Hide() {
  visible_ = false;
  Mirror(Property::kVisible);
}

void Form::ShowModal(Form& owner) {
  const ModalScope only_this(front_end_, this);
  modal_ = true;
  owner_ = &owner;
  Show();
  front_end_.RunModal(*this);
  if (visible()) Hide();
  modal_ = false;
  owner_ = nullptr;
}

void Form::Restore() {
  if (!visible_ || state_ == WindowState::kNormal) return;
  state_ = WindowState::kNormal;
  Mirror(Property::kState);
}

void Form::SetTaskProgress(std::optional<double> fraction, TaskState state) {
  if (task_progress_ == fraction && task_state_ == state) return;
  task_progress_ = fraction;
  task_state_ = state;
  Mirror(Property::kValue);
}

void Form::UserClosed() {
  if (!reachable()) return;
  if (on_close) {
    Run(on_close);
  } else {
    Hide();
  }
}

void Form::UserMoved(Rect bounds) { bounds_ = bounds; }

void Form::InnerSizeIs(Size inner) {
  if (inner_ == inner) return;
  inner_ = inner;
  if (visible()) Run(on_resize);
}

void Form::UserActivated() {
  if (visible()) Run(on_activate);
}

bool Form::UserPressedEnter() {
  auto* button = dynamic_cast<Button*>(focused_);
  if (button == nullptr) button = default_button_;
  if (button == nullptr || !button->reachable()) return false;
  button->UserPressed();
  return true;
}

bool Form::UserPressedEscape() {
  if (cancel_button_ != nullptr && cancel_button_->reachable()) {
    cancel_button_->UserPressed();
    return true;
  }
  if (!on_escape || !reachable()) return false;
  Run(on_escape);
  return true;
}

bool Form::UserPressedAccessKey(char letter) {
  const auto has_key = [small = base::LowerAscii(letter)](const Control& control) {
    return base::LowerAscii(control.access_key()) == small;
  };
  Control* meant = nullptr;
  ForEach([&](Control& control) {
    if (meant == nullptr && has_key(control) && control.reachable()) meant = &control;
  });
  if (meant == nullptr) return false;
  if (dynamic_cast<Label*>(meant) != nullptr) meant = AfterInTabOrder(meant);
  if (meant == nullptr || !meant->SetFocus()) return false;
  meant->UserKeyed();
  return true;
}

bool Form::UserPressedKey(const KeyPress& press) {
  const bool means_the_window = press.key == Key::kF3 || press.key == Key::kF8 || press.key == Key::kFind;
  const bool passes_keys_on = means_the_window || focused_ == nullptr ||
                              dynamic_cast<Button*>(focused_) != nullptr ||
                              dynamic_cast<CheckBox*>(focused_) != nullptr;
  return on_key && passes_keys_on && reachable() && on_key(press);
}

std::vector<Control*> Form::TabOrder(const Control* from) const {
  std::vector<Control*> order;
  ForEach([&](Control& control) {
    if (&control == from || (control.takes_focus() && control.reachable())) order.push_back(&control);
  });
  return order;
}

Control* Form::AfterInTabOrder(const Control* from) const {
  const std::vector<Control*> order = TabOrder(from);
  if (order.empty()) return nullptr;
  const auto here = std::find(order.begin(), order.end(), from);
  Control* const next = here == order.end() || here + 1 == order.end() ? order.front() : *(here + 1);
  return next == from ? nullptr : next;
}

Control* Form::BeforeInTabOrder(const Control* from) const {
  const std::vector<Control*> order = TabOrder(from);
  if (order.empty()) return nullptr;
  const auto here = std::find(order.begin(), order.end(), from);
  Control* const previous = here == order.end() || here == order.begin() ? order.back() : *(here - 1);
  return previous == from ? nullptr : previous;
}

void Form::MoveFocusTo(Control* control) {
  Control* const before = std::exchange(focused_, control);
  if (control->peer() != nullptr) control->peer()->TakeFocus();
  if (before != nullptr && before != control) before->Raise(before->on_lost_focus);
}

void Form::DropLostFocus() {
  if (focused_ == nullptr) return;
  for (const Control* around = focused_; around != this; around = around->parent()) {
    if (around->visible() && around->enabled()) continue;
    focused_ = nullptr;
    if (peer() != nullptr) peer()->TakeFocus();
    return;
  }
}

}  // namespace ui
