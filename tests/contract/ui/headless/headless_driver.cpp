#include "tests/contract/ui/driver.h"
#include "ui/headless/headless_front_end.h"

namespace contract {
namespace {

class HeadlessDriver : public Driver {
 public:
  ui::FrontEnd& front_end() override { return front_end_; }

  void Click(ui::Control& control) override {
    if (auto* button = dynamic_cast<ui::Button*>(&control)) ui::headless::Click(*button);
    if (auto* label = dynamic_cast<ui::Label*>(&control)) ui::headless::Click(*label);
    if (auto* box = dynamic_cast<ui::CheckBox*>(&control)) ui::headless::Tick(*box, box->value() == 0);
  }

  void Press(ui::Form& form, Key key) override {
    switch (key) {
      case Key::kSpace:
        return ui::headless::PressSpace(form);
      case Key::kEnter:
        form.UserPressedEnter();
        return;
      case Key::kEscape:
        form.UserPressedEscape();
        return;
      case Key::kTab:
        return ui::headless::PressTab(form);
      case Key::kBackTab:
        form.BeforeInTabOrder(form.focused())->UserFocused();
        return;
    }
  }

  void PressAccessKey(ui::Form& form, char letter) override { form.UserPressedAccessKey(letter); }
  void Type(ui::TextBox& box, const std::string& text) override { ui::headless::Type(box, text); }
  void Choose(ui::DropDownList& list, int index) override { ui::headless::Select(list, index); }
  void Drag(ui::ScrollBar& bar, int value) override { ui::headless::Scroll(bar, value); }
  void Close(ui::Form& form) override { form.UserClosed(); }
  void Minimise(ui::Form& form) override { form.UserSetState(ui::WindowState::kMinimised); }

  void Resize(ui::Form& form, ui::Size outer) override {
    const ui::Size frame{form.width() - form.inner().width, form.height() - form.inner().height};
    form.UserMoved({form.left(), form.top(), outer.width, outer.height});
    form.InnerSizeIs({outer.width - frame.width, outer.height - frame.height});
  }

  void HoverOver(ui::Control& control) override { control.UserMovedPointer(); }
  void Later(std::function<void()> act) override { front_end_.Post(std::move(act)); }
  void PassTime(int milliseconds) override { front_end_.PassTime(milliseconds); }
  void AnswerYes() override { front_end_.dialogs().yes_no.push_back(true); }
  void AnswerByLeaving() override {}
  void AnswerText(const std::string& text) override { front_end_.dialogs().texts.emplace_back(text); }
  std::string SpokenName(ui::Control& control) override { return control.spoken_name(); }

 private:
  ui::headless::HeadlessFrontEnd front_end_;
};

}  // namespace

std::unique_ptr<Driver> MakeDriver() { return std::make_unique<HeadlessDriver>(); }

}  // namespace contract
