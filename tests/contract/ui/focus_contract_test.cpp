#include "tests/contract/ui/contract_window.h"

namespace contract {

TEST_F(FrontEndContract, TabFollowsTheOrderOfMakingAndSkipsWhatCannotBeReached) {
  window_.list.SetVisible(false);
  window_.bar.SetEnabled(false);
  std::string order;
  EXPECT_TRUE(window_.first.has_focus());
  for (int i = 0; i < 7; ++i) {
    driver_->Press(window_, kTab, i < 5 ? Held::kNothing : Held::kShift);
    order += window_.focused()->name() + " ";
  }
  EXPECT_EQ(order, "line check framed report first report framed ");
}

TEST_F(FrontEndContract, TheFocusIsLostOnceWhoeverMovesItAndAHandlerMayTakeItBack) {
  const std::function<void()> moves[] = {[this] { window_.first.SetFocus(); },
                                         [this] { driver_->Press(window_, kTab); },
                                         [this] { driver_->Click(window_.framed); }};
  window_.line.on_lost_focus = Count();
  for (int moved = 0; moved < 3; ++moved) {
    window_.line.SetFocus();
    moves[moved]();
    EXPECT_EQ(count_, moved + 1);
  }
  window_.line.SetFocus();
  window_.line.on_lost_focus = [this] { window_.line.SetFocus(); };
  window_.framed.SetFocus();
  EXPECT_TRUE(window_.line.has_focus());
  driver_->Type(window_.line, "typed");
  EXPECT_EQ(window_.line.text(), "typed");
}

TEST_F(FrontEndContract, WhatIsHiddenOrDisabledGivesTheFocusToNoOther) {
  window_.framed.on_lost_focus = window_.bar.on_lost_focus = window_.first.on_mouse_up = Count();
  window_.framed.SetFocus();
  window_.frame.SetEnabled(false);
  front_end_.RunPendingEvents();
  EXPECT_EQ(window_.focused(), nullptr);
  driver_->Press(window_, kSpace);
  EXPECT_EQ(window_.focused(), nullptr);
  window_.bar.SetFocus();
  window_.bar.SetVisible(false);
  EXPECT_EQ(window_.focused(), nullptr);
  EXPECT_EQ(count_, 0);
  driver_->Press(window_, kTab);
  EXPECT_TRUE(window_.first.has_focus());
}

TEST_F(FrontEndContract, OnlyWhatIsReachableAndMeantForItTakesTheFocus) {
  window_.line.SetEnabled(false);
  EXPECT_FALSE(window_.line.SetFocus());
  EXPECT_FALSE(window_.label.SetFocus());
  EXPECT_TRUE(window_.first.has_focus());
  window_.line.SetEnabled(true);
  driver_->Press(window_, 'n', Held::kAlt);  // the label's, for the control behind it
  EXPECT_TRUE(window_.line.has_focus());
}

}  // namespace contract
