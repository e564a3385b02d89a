#include "ui/controls.h"

#include <algorithm>
#include <utility>

#include "ui/form.h"
#include "ui/front_end.h"

namespace ui {

std::unique_ptr<Peer> Button::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }
std::unique_ptr<Peer> Label::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }
std::unique_ptr<Peer> CheckBox::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }
std::unique_ptr<Peer> DropDownList::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }
std::unique_ptr<Peer> ProgressBar::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }
std::unique_ptr<Peer> ScrollBar::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }
std::unique_ptr<Peer> Timer::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }

void CheckBox::SetValue(int value) {
  if (value_ == value) return;
  value_ = value;
  Mirror(Property::kValue);
}

void CheckBox::UserTicked(int value) {
  const bool changed = reachable() && value_ != value;
  if (changed) value_ = value;
  Mirror(Property::kValue);
  if (changed) Raise(on_click);
}

void DropDownList::SetItems(std::vector<std::string> items) {
  items_ = std::move(items);
  list_index_ = -1;
  Mirror(Property::kItems);
  Mirror(Property::kValue);
}

void DropDownList::RemoveItem(int index) {
  if (index < 0 || index >= count()) return;
  items_.erase(items_.begin() + index);
  if (list_index_ == index) {
    list_index_ = -1;
  } else if (list_index_ > index) {
    --list_index_;
  }
  Mirror(Property::kItems);
  Mirror(Property::kValue);
}

bool DropDownList::SetListIndex(int index) {
  if (index < -1 || index >= count()) return false;
  list_index_ = index;
  Mirror(Property::kValue);
  return true;
}

void DropDownList::UserSelected(int index, Choice choice) {
  const bool selected = reachable() && index >= 0 && index < count();
  if (selected) list_index_ = index;
  choice_finished_ = choice == Choice::kFinished;
  Mirror(Property::kValue);
  if (selected) Raise(on_click);
}

void ProgressBar::SetFraction(double fraction) {
  fraction = std::clamp(fraction, 0.0, 1.0);
  if (fraction == fraction_) return;
  fraction_ = fraction;
  Mirror(Property::kValue);
}

void ScrollBar::SetRange(int maximum, int page) {
  maximum_ = std::max(maximum, 0);
  page_ = std::max(page, 1);
  value_ = std::min(value_, maximum_);
  Mirror(Property::kValue);
}

void ScrollBar::SetValue(int value) {
  value_ = std::clamp(value, 0, maximum_);
  Mirror(Property::kValue);
}

void ScrollBar::UserScrolled(int value) {
  const int wanted = std::clamp(value, 0, maximum_);
  const bool moved = reachable() && wanted != value_;
  if (moved) value_ = wanted;
  Mirror(Property::kValue);
  if (moved) Raise(on_change);
}

void Timer::Start(std::chrono::milliseconds interval) {
  interval_ = std::max(interval, std::chrono::milliseconds{1});
  running_ = true;
  AttachPeer(form().front_end());
  Mirror(Property::kValue);
}

void Timer::Stop() {
  running_ = false;
  Mirror(Property::kValue);
}

void Timer::Tick() {
  if (running_) Run(on_timer);
}

}  // namespace ui
