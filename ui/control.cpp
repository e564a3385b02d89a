#include "ui/control.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/front_end.h"

namespace ui {
namespace {

/// Visibility comes last, so that nothing is seen before it is complete.
constexpr std::array kMirrorOrder = {Property::kFont,      Property::kColours, Property::kText,
                                     Property::kItems,     Property::kValue,   Property::kHelp,
                                     Property::kEnabled,   Property::kBounds,  Property::kState,
                                     Property::kSelection, Property::kVisible};

}  // namespace

Control::Control(Container* parent, std::string name) : parent_(parent), name_(std::move(name)) {
  if (parent_ != nullptr) parent_->controls_.push_back(this);
}

Control::~Control() {
  if (parent_ == nullptr) return;
  std::erase(parent_->controls_, this);
  Form& window = parent_->form();
  if (window.focused_ == this) window.focused_ = nullptr;
}

Form& Control::form() { return parent_->form(); }

template <typename T>
void Control::Store(T& member, T value, Property property) {
  if (member == value) return;
  member = std::move(value);
  Mirror(property);
}

void Control::SetText(std::string text) { Store(text_, std::move(text), Property::kText); }

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  if (!visible) form().DropLostFocus();
  Mirror(Property::kVisible);
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  if (!enabled) form().DropLostFocus();
  Mirror(Property::kEnabled);
}

bool Control::reachable() const {
  return visible_ && enabled_ && (parent_ == nullptr || parent_->reachable());
}

void Control::SetBounds(Rect bounds) { Store(bounds_, bounds, Property::kBounds); }
void Control::SetToolTip(std::string text) { Store(tool_tip_, std::move(text), Property::kHelp); }
void Control::SetSpokenName(std::string text) { Store(spoken_name_, std::move(text), Property::kHelp); }
void Control::SetDescription(std::string text) { Store(description_, std::move(text), Property::kHelp); }
void Control::SetAccessKey(char letter) { Store(access_key_, letter, Property::kHelp); }
void Control::SetColours(std::optional<Colours> colours) { Store(colours_, colours, Property::kColours); }
void Control::SetFont(Font font) { Store(font_, std::move(font), Property::kFont); }

bool Control::SetFocus() {
  if (!takes_focus() || !reachable()) return false;
  form().MoveFocusTo(this);
  return has_focus();
}

bool Control::has_focus() { return form().focused() == this; }

void Control::Repaint() {
  if (peer_) peer_->Repaint();
}

void Control::AttachPeer(FrontEnd& front_end) {
  if (attached_) return;
  attached_ = true;
  peer_ = MakePeer(front_end);
  for (const Property property : kMirrorOrder) Mirror(property);
}

void Control::Mirror(Property property) {
  if (peer_) peer_->Mirror(property);
  if (!attached_ && parent_ != nullptr && parent_->attached_) AttachPeer(form().front_end());
}

void Control::Raise(const Handler& handler) {
  if (reachable()) Run(handler);
}

void Control::Run(const Handler& handler) {
  if (!handler) return;
  if (!reentry_allowed_ && std::find(running_.begin(), running_.end(), &handler) != running_.end()) return;
  const Handler copy = handler;  // the handler may replace itself
  running_.push_back(&handler);
  copy();
  running_.pop_back();
}

void Control::UserMovedPointer() { Raise(on_mouse_move); }
void Control::UserMovedPointerAway() { Raise(on_mouse_leave); }

void Control::UserFocused() {
  if (takes_focus() && reachable()) form().MoveFocusTo(this);
}

void Container::ForEach(const std::function<void(Control&)>& visit) const {
  for (Control* control : controls_) {
    visit(*control);
    if (const auto* inner = dynamic_cast<Container*>(control)) inner->ForEach(visit);
  }
}

void Container::AttachPeer(FrontEnd& front_end) {
  Control::AttachPeer(front_end);
  for (Control* control : controls_) control->AttachPeer(front_end);
}

void Frame::UserTurnedWheel(double notches) {
  if (scroll_bar_ == nullptr || !reachable()) return;
  const double by_notch = std::max(scroll_bar_->page() / 4.0, 1.0);
  scroll_bar_->UserScrolled(scroll_bar_->value() - static_cast<int>(std::lround(notches * by_notch)));
}

std::unique_ptr<Peer> Frame::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }

}  // namespace ui
