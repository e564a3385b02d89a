#include <gtest/gtest.h>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/headless/headless_front_end.h"

namespace {

class HeadlessTest : public testing::Test {
 protected:
  void SetUp() override { form_.Show(); }

  ui::headless::HeadlessFrontEnd front_end_;
  ui::Form form_{front_end_, "form", ui::FormStyle::kMain};
  ui::Button button_{&form_, "button"};
  ui::DropDownList list_{&form_, "list"};
  ui::Timer slow_{&form_, "slow"};
  ui::Timer fast_{&form_, "fast"};
};

TEST_F(HeadlessTest, TimersTickInTheOrderOfTime) {
  std::string ticks;
  slow_.on_timer = [&] { ticks += "s"; };
  fast_.on_timer = [&] { ticks += "f"; };
  slow_.Start(25);
  fast_.Start(10);
  front_end_.PassTime(50);
  EXPECT_EQ(ticks, "ffsffsf");
}

TEST_F(HeadlessTest, NothingReactsBehindADialogButTimers) {
  int presses = 0;
  int ticks = 0;
  button_.on_mouse_up = [&] { ++presses; };
  slow_.on_timer = [&] { ++ticks; };
  slow_.Start(10);
  front_end_.dialogs().while_open = [&](const ui::headless::HeadlessDialogs::Asked& asked) {
    EXPECT_EQ(asked.kind, "message");
    EXPECT_FALSE(ui::headless::Click(button_));
    front_end_.PassTime(10);
  };
  front_end_.dialogs().Show(form_, {"text", "", ui::Icon::kNone});
  EXPECT_EQ(presses, 0);
  EXPECT_EQ(ticks, 1);
  EXPECT_TRUE(ui::headless::Click(button_));
}

TEST_F(HeadlessTest, OnlyWhatWasPostedBeforeRuns) {
  std::string order;
  front_end_.RunPendingEvents();
  front_end_.Post([&] {
    order += "a";
    front_end_.Post([&] { order += "c"; });
  });
  front_end_.Post([&] { order += "b"; });
  front_end_.RunPendingEvents();
  EXPECT_EQ(order, "ab");
  front_end_.RunPendingEvents();
  EXPECT_EQ(order, "abc");
}

TEST_F(HeadlessTest, RemovingAnEntryKeepsTheSelectedOneSelected) {
  struct Case {
    int selected;
    int removed;
    int then;
  };
  for (const Case& c : {Case{2, 0, 1}, Case{0, 2, 0}, Case{1, 1, -1}, Case{1, 7, 1}, Case{-1, 0, -1}}) {
    list_.SetItems({"a", "b", "c"});
    EXPECT_TRUE(list_.SetListIndex(c.selected));
    list_.RemoveItem(c.removed);
    EXPECT_EQ(list_.list_index(), c.then);
  }
  EXPECT_FALSE(list_.SetListIndex(99));
}

TEST_F(HeadlessTest, TheWheelOverAFrameMovesItsBar) {
  ui::Frame frame(&form_, "frame");
  ui::ScrollBar bar(&form_, "bar");
  frame.UserTurnedWheel(-1);
  frame.SetScrollBar(&bar);
  bar.SetRange(100, 20);
  frame.UserTurnedWheel(-2);
  EXPECT_EQ(bar.value(), 10);
  frame.UserTurnedWheel(9);
  EXPECT_EQ(bar.value(), 0);
}

}  // namespace
