#include <gtest/gtest.h>

#include "report/frmPopUp.h"
#include "ui/headless/headless_front_end.h"

namespace report {
namespace {

struct PopUpScene {
  ui::headless::HeadlessFrontEnd front_end;
  frmPopUp window{front_end};
};

TEST(PopUp, ShowsOnlyTheSecondTextForItsFullTime) {
  PopUpScene scene;
  scene.window.PopUp("first", 3'000, 500, 1'000, 100, 200);
  scene.front_end.PassTime(900);
  scene.window.PopUp("second", 4'000, 600, 2'000, 300, 400);
  EXPECT_EQ(scene.window.lblMessage.text(), "second");
  EXPECT_EQ(scene.window.bounds(), (ui::Rect{400, 300, 4'000, 600}));
  EXPECT_EQ(scene.window.lblMessage.bounds(), (ui::Rect{0, 0, 4'000, 600}));
  scene.front_end.PassTime(1'999);
  EXPECT_TRUE(scene.window.visible());
  scene.front_end.PassTime(1);
  EXPECT_FALSE(scene.window.visible());
  EXPECT_FALSE(scene.window.Timer1.running());
}

TEST(PopUp, AClickHidesItAndStopsItsTimer) {
  PopUpScene scene;
  scene.window.PopUpCenterScreen("text", 6'000, 1'000, 60'000);
  EXPECT_EQ(scene.window.bounds(), (ui::Rect{11'400, 7'600, 6'000, 1'000}));
  EXPECT_TRUE(ui::headless::Click(scene.window.lblMessage));
  EXPECT_FALSE(scene.window.visible());
  EXPECT_FALSE(scene.window.Timer1.running());
}

TEST(PopUp, InAWindowCountsFromItsCornerAndCanBeWaitedFor) {
  PopUpScene scene;
  ui::Form owner(scene.front_end, "frmMain", ui::FormStyle::kMain);
  owner.SetBounds({30'000, 300, 12'000, 9'000});
  scene.window.PopUpInForm(owner, "text", 6'000, 1'000, 60'000, 7'700, 3'000);
  EXPECT_EQ(scene.window.bounds(), (ui::Rect{33'000, 8'000, 6'000, 1'000}));
  scene.window.WaitUntilHidden();
  EXPECT_FALSE(scene.window.visible());
}

}  // namespace
}  // namespace report
