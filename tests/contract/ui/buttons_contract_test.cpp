#include "tests/contract/ui/contract_window.h"

namespace contract {
namespace {

struct Way {
  const char* name;
  char key;  ///< 0: the mouse
  Held held = Held::kNothing;
};

constexpr Way kWaysToPress[] = {
    {"mouse", 0}, {"access key", 'm', Held::kAlt}, {"space", kSpace}, {"enter", kEnter}};

void PressFramed(Driver& user, Window& window, const Way& way) {
  if (way.key == 0) return user.Click(window.framed);
  if (way.held == Held::kNothing) window.framed.SetFocus();
  user.Press(window, way.key, way.held);
}

TEST_F(FrontEndContract, EveryWayToPressAButtonActsOnceAndGivesItTheFocusButNotADragOffIt) {
  window_.framed.on_mouse_up = Count();
  bool hovered = false;
  window_.framed.on_mouse_move = [&] { hovered = true; };
  driver_->HoverOver(window_.framed);
  EXPECT_TRUE(hovered);
  for (const Way& way : kWaysToPress) {
    SCOPED_TRACE(way.name);
    count_ = 0;
    window_.first.SetFocus();
    PressFramed(*driver_, window_, way);
    EXPECT_EQ(count_, 1);
    EXPECT_TRUE(window_.framed.has_focus());
  }
  window_.first.on_mouse_up = window_.label.on_mouse_up = Count();
  driver_->DragOff(window_.first);
  driver_->DragOff(window_.label);
  EXPECT_EQ(count_, 1);
}

TEST_F(FrontEndContract, WhatCannotBeReachedDoesNotAct) {
  const std::pair<const char*, void (*)(Window&)> obstacles[] = {
      {"disabled", [](Window& window) { window.framed.SetEnabled(false); }},
      {"hidden", [](Window& window) { window.framed.SetVisible(false); }},
      {"in a disabled frame", [](Window& window) { window.frame.SetEnabled(false); }},
      {"in a hidden frame", [](Window& window) { window.frame.SetVisible(false); }},
      {"in a disabled window", [](Window& window) { window.SetEnabled(false); }},
  };
  for (const auto& [name, put_up] : obstacles) {
    for (const Way& way : kWaysToPress) {
      SCOPED_TRACE(std::string(name) + " by " + way.name);
      Window window(front_end_, ui::FormStyle::kReport);
      window.framed.on_mouse_up = window.framed.on_mouse_move = Count();
      Show(window);
      window.framed.SetFocus();
      count_ = 0;
      put_up(window);
      PressFramed(*driver_, window, way);
      EXPECT_EQ(count_, 0);
    }
  }
}

TEST_F(FrontEndContract, NothingBehindADialogActs) {
  window_.framed.on_mouse_up = Count();
  const auto try_all_and = [this](const ui::Handler& leave) {
    for (const Way& way : kWaysToPress) PressFramed(*driver_, window_, way);
    leave();
  };
  Window dialog(front_end_, ui::FormStyle::kDialog);
  Later([&] { try_all_and([&] { dialog.Hide(); }); });
  dialog.ShowModal(window_);
  WhenADialogIsOpen([&] { try_all_and([&] { driver_->LeaveDialog(); }); });
  front_end_.dialogs().AskYesNo(window_, {"Go on?", "", ui::Icon::kQuestion});
  EXPECT_EQ(count_, 0);
  driver_->Click(window_.framed);
  EXPECT_EQ(count_, 1);
}

TEST_F(FrontEndContract, OnlyAHandlerThatStillRunsIsNotRunAgain) {
  window_.framed.AllowReentry();
  for (ui::Button* button : {&window_.first, &window_.framed}) {
    count_ = 0;
    window_.check.SetValue(0);
    button->on_mouse_up = [this, button] {
      if (++count_ > 1) return;
      Later([this, button] {
        driver_->Click(*button);
        driver_->Click(window_.check);
      });
      driver_->PassTime(50ms);
    };
    driver_->Click(*button);
    EXPECT_EQ(count_, button == &window_.first ? 1 : 2);
    EXPECT_EQ(window_.check.value(), 1);
  }
}

TEST_F(FrontEndContract, EnterAndEscapeReachTheDefaultAndTheCancelButton) {
  std::string done;
  window_.on_escape = [&] { done += "escape "; };
  window_.on_close = [&] { done += "closed "; };
  window_.first.on_mouse_up = [&] { done += "default "; };
  window_.framed.on_mouse_up = [&] { done += "cancel "; };
  window_.SetDefaultButton(&window_.first);
  window_.report.SetReadOnly(true);
  for (ui::TextBox* focused : {&window_.line, &window_.report}) {
    done.clear();
    focused->SetFocus();
    driver_->Press(window_, kEnter);
    driver_->Press(window_, kEscape);
    window_.SetCancelButton(&window_.framed);
    driver_->Press(window_, kEscape);
    window_.framed.SetFocus();
    driver_->Press(window_, kEnter);
    window_.SetCancelButton(nullptr);
    EXPECT_EQ(done, "default escape cancel cancel ") << focused->name();
  }
}

TEST_F(FrontEndContract, AWindowIsOfferedTheKeysThatItsFocusedControlLeaves) {
  std::string keys;
  window_.framed.on_mouse_up = Count();
  window_.on_key = [&](const ui::KeyPress& press) {
    keys += press.key == ui::Key::kCharacter ? press.character : std::to_string(static_cast<int>(press.key));
    return true;
  };
  driver_->Press(window_, 'm');  // an access key takes Alt
  driver_->Press(window_, kDown);
  window_.line.SetFocus();
  driver_->Press(window_, 'x');
  EXPECT_EQ(keys, "m1");
  EXPECT_EQ(count_, 0);
}

TEST_F(FrontEndContract, EveryControlHasANameToSpeak) {
  ui::Label ampersand(&window_, "ampersand");
  ampersand.SetText("R&D");
  window_.frame.SetText("Frame");
  window_.line.SetText("what it holds is not its name");
  window_.ForEach([this](ui::Control& control) {
    if (&control == &window_.timer) return;
    EXPECT_EQ(driver_->SpokenName(control), control.spoken_name());
  });
  window_.line.SetSpokenName("");
  EXPECT_EQ(window_.line.spoken_name(), "");
}

}  // namespace
}  // namespace contract
