#include "tests/contract/ui/contract_window.h"

namespace contract {
namespace {

using Act = std::function<void(Driver&, Window&)>;

struct Way {
  const char* name;
  Act act;
};

const Way kWaysToPress[] = {
    {"mouse", [](Driver& user, Window& window) { user.Click(window.framed); }},
    {"access key", [](Driver& user, Window& window) { user.PressAccessKey(window, 'm'); }},
    {"space",
     [](Driver& user, Window& window) {
       window.framed.SetFocus();
       user.Press(window, Key::kSpace);
     }},
    {"enter",
     [](Driver& user, Window& window) {
       window.framed.SetFocus();
       user.Press(window, Key::kEnter);
     }},
};

TEST_F(FrontEndContract, EveryWayToPressAButtonActsOnceAndGivesItTheFocus) {
  window_.framed.on_mouse_up = Count();
  for (const Way& way : kWaysToPress) {
    SCOPED_TRACE(way.name);
    count_ = 0;
    window_.first.SetFocus();
    way.act(*driver_, window_);
    EXPECT_EQ(count_, 1);
    EXPECT_TRUE(window_.framed.has_focus());
  }
}

TEST_F(FrontEndContract, WhatCannotBeReachedDoesNotAct) {
  const Way obstacles[] = {
      {"disabled", [](Driver&, Window& window) { window.framed.SetEnabled(false); }},
      {"hidden", [](Driver&, Window& window) { window.framed.SetVisible(false); }},
      {"in a disabled frame", [](Driver&, Window& window) { window.frame.SetEnabled(false); }},
      {"in a hidden frame", [](Driver&, Window& window) { window.frame.SetVisible(false); }},
      {"in a disabled window", [](Driver&, Window& window) { window.SetEnabled(false); }},
  };
  for (const Way& obstacle : obstacles) {
    for (const Way& way : kWaysToPress) {
      SCOPED_TRACE(std::string(obstacle.name) + " by " + way.name);
      Window window(front_end_, ui::FormStyle::kReport);
      window.framed.on_mouse_up = window.framed.on_mouse_move = Count();
      Show(window);
      window.framed.SetFocus();
      count_ = 0;
      obstacle.act(*driver_, window);
      way.act(*driver_, window);
      EXPECT_EQ(count_, 0);
    }
  }
}

TEST_F(FrontEndContract, NothingBehindADialogActs) {
  window_.framed.on_mouse_up = Count();
  Window dialog(front_end_, ui::FormStyle::kDialog);
  driver_->Later([&] {
    for (const Way& way : kWaysToPress) way.act(*driver_, window_);
    dialog.Hide();
  });
  dialog.ShowModal(window_);
  EXPECT_EQ(count_, 0);
  driver_->Click(window_.framed);
  EXPECT_EQ(count_, 1);
}

TEST_F(FrontEndContract, AHandlerThatStillRunsIsNotRunAgain) {
  for (const bool allowed : {false, true}) {
    ui::Button& button = allowed ? window_.framed : window_.first;
    if (allowed) button.AllowReentry();
    count_ = 0;
    button.on_mouse_up = [&] {
      if (++count_ > 1) return;
      driver_->Later([&] { driver_->Click(button); });
      front_end_.WaitForEvents(50);
    };
    driver_->Click(button);
    EXPECT_EQ(count_, allowed ? 2 : 1);
  }
}

TEST_F(FrontEndContract, OtherControlsActInsideAHandlerThatRunsPendingEvents) {
  window_.framed.on_mouse_up = Count();
  window_.first.on_mouse_up = [&] {
    driver_->Later([&] { driver_->Click(window_.framed); });
    front_end_.WaitForEvents(50);
    EXPECT_EQ(count_, 1);
  };
  driver_->Click(window_.first);
  EXPECT_EQ(count_, 1);
}

TEST_F(FrontEndContract, EnterAndEscapeReachTheDefaultAndTheCancelButton) {
  window_.SetDefaultButton(&window_.first);
  window_.SetCancelButton(&window_.framed);
  std::string pressed;
  window_.first.on_mouse_up = [&] { pressed += "default "; };
  window_.framed.on_mouse_up = [&] { pressed += "cancel "; };
  window_.line.SetFocus();
  driver_->Press(window_, Key::kEnter);
  driver_->Press(window_, Key::kEscape);
  window_.framed.SetFocus();
  driver_->Press(window_, Key::kEnter);
  EXPECT_EQ(pressed, "default cancel cancel ");
}

TEST_F(FrontEndContract, AControlMadeInAShownWindowWorks) {
  ui::Button late(&window_, "late");
  late.SetBounds({5'100, 150, 1'500, 600});
  late.on_mouse_up = Count();
  late.on_mouse_move = Count();
  front_end_.RunPendingEvents();
  driver_->HoverOver(late);
  EXPECT_GE(count_, 1);
  count_ = 0;
  late.on_mouse_move = nullptr;
  driver_->Click(late);
  EXPECT_EQ(count_, 1);
}

TEST_F(FrontEndContract, EveryControlHasANameToSpeak) {
  window_.ForEach([&](ui::Control& control) {
    if (&control == &window_.frame || &control == &window_.timer) return;
    EXPECT_FALSE(driver_->SpokenName(control).empty()) << control.name();
    EXPECT_EQ(driver_->SpokenName(control), control.spoken_name());
  });
}

}  // namespace
}  // namespace contract
