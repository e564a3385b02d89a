#include <algorithm>

#include "tests/contract/ui/driver.h"
#include "ui/headless/headless_front_end.h"

namespace contract {
namespace {

using namespace ui::headless;

class HeadlessDriver : public Driver {
 public:
  HeadlessDriver() {
    front_end_.when_idle = [this] { front_end_.PassTime(1ms); };
    dialogs_.while_open = [this](const HeadlessDialogs::Asked&) { front_end_.PassTime(100ms); };
  }
  ui::FrontEnd& front_end() override { return front_end_; }

  void Click(ui::Control& control) override {
    if (auto* button = dynamic_cast<ui::Button*>(&control)) ui::headless::Click(*button);
    if (auto* label = dynamic_cast<ui::Label*>(&control)) ui::headless::Click(*label);
    if (auto* box = dynamic_cast<ui::CheckBox*>(&control)) Tick(*box, box->value() == 0);
  }
  void DragOff(ui::Control& control) override { control.UserMovedPointer(); }
  void HoverOver(ui::Control& control) override { control.UserMovedPointer(); }
  void TurnWheel(ui::Control& control, int notches) override {
    if (auto* frame = dynamic_cast<ui::Frame*>(control.parent())) frame->UserTurnedWheel(notches);
  }

  void Press(ui::Form& form, char key, Held held) override {
    if (held == Held::kAlt) return static_cast<void>(form.UserPressedAccessKey(key));
    if (held == Held::kShift) return form.BeforeInTabOrder(form.focused())->UserFocused();
    if (key == kTab) return PressTab(form);
    if (key == kSpace) return PressSpace(form);
    if (key == kEnter) return static_cast<void>(form.UserPressedEnter());
    if (key == kEscape) return static_cast<void>(form.UserPressedEscape());
    PressKey(form, key == kDown ? ui::KeyPress{ui::Key::kDown} : ui::KeyPress{.character = {key}});
  }
  void Type(ui::TextBox& box, const std::string& text) override { ui::headless::Type(box, text); }
  void Choose(ui::DropDownList& list, int index) override {
    if (list.SetFocus()) list.UserSelected(index, ui::DropDownList::Choice::kPassing);
  }
  void Drag(ui::ScrollBar& bar, int value) override { Scroll(bar, value); }
  void Close(ui::Form& form) override { form.UserClosed(); }
  void Minimise(ui::Form& form) override { form.UserSetState(ui::WindowState::kMinimised); }
  void Resize(ui::Form& form, ui::Size outer) override {
    const ui::Size frame{form.width() - form.inner().width, form.height() - form.inner().height};
    const ui::Size inner{std::max(outer.width - frame.width, form.smallest().width),
                         std::max(outer.height - frame.height, form.smallest().height)};
    form.UserMoved({form.left(), form.top(), inner.width + frame.width, inner.height + frame.height});
    form.InnerSizeIs(inner);
  }
  void PassTime(std::chrono::milliseconds time) override { front_end_.PassTime(time); }

  bool DialogIsOpen() override { return true; }
  void AnswerYes() override { dialogs_.yes_no.push_back(true); }
  void AnswerByEnter() override { dialogs_.yes_no.push_back(std::nullopt); }
  void AnswerText(const std::string& text) override { dialogs_.texts.emplace_back(text); }
  void AnswerPath(const std::string& path) override { dialogs_.texts.emplace_back(path); }
  void LeaveDialog() override {}

  std::string SpokenName(ui::Control& control) override { return control.spoken_name(); }

 private:
  HeadlessFrontEnd front_end_;
  HeadlessDialogs& dialogs_ = front_end_.dialogs();
};

}  // namespace

std::unique_ptr<Driver> MakeDriver() { return std::make_unique<HeadlessDriver>(); }

}  // namespace contract
