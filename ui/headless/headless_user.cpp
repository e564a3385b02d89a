#include "ui/controls.h"
#include "ui/form.h"
#include "ui/headless/headless_front_end.h"
#include "ui/text_box.h"

namespace ui::headless {

bool Click(Button& button) {
  if (!button.reachable()) return false;
  button.UserFocused();
  button.UserPressed();
  return true;
}

bool Click(Label& label) {
  if (!label.reachable()) return false;
  label.UserPressed();
  return true;
}

bool Tick(CheckBox& box, bool ticked) {
  if (!box.reachable()) return false;
  box.UserFocused();
  box.UserTicked(ticked ? 1 : 0);
  return true;
}

bool Select(DropDownList& list, int index) {
  if (!list.reachable()) return false;
  list.UserFocused();
  list.UserSelected(index);
  return true;
}

bool Type(TextBox& box, const std::string& text) {
  if (!box.reachable()) return false;
  box.UserFocused();
  box.UserEdited(text);
  return !box.read_only();
}

bool Scroll(ScrollBar& bar, int value) {
  if (!bar.reachable()) return false;
  bar.UserFocused();
  bar.UserScrolled(value);
  return true;
}

void PressTab(Form& form) {
  if (Control* next = form.AfterInTabOrder(form.focused())) next->UserFocused();
}

void PressSpace(Form& form) {
  if (form.UserPressedKey({Key::kCharacter, " "})) return;
  Control* focused = form.focused();
  if (focused != nullptr && focused->reachable()) focused->UserKeyed();
}

bool PressKey(Form& form, const KeyPress& press) { return form.UserPressedKey(press); }

}  // namespace ui::headless
