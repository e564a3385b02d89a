#include <gtest/gtest.h>

#include "report/frmPopUp.h"
#include "ui/headless/headless_front_end.h"

namespace report {
namespace {

TEST(PopUp, ShowsOnlyTheSecondTextForItsFullTime) {
  ui::headless::HeadlessFrontEnd front_end;
  frmPopUp window(front_end);
  window.PopUp("first", 3'000, 500, 1'000, 100, 200);
  front_end.PassTime(900);
  window.PopUp("second", 4'000, 600, 2'000, 300, 400);
  EXPECT_EQ(window.bounds(), (ui::Rect{400, 300, 4'000, 600}));
  EXPECT_EQ(window.lblMessage.bounds(), (ui::Rect{0, 0, 4'000, 600}));
  front_end.PassTime(1'999);
  EXPECT_TRUE(window.visible());
  front_end.PassTime(1);
  EXPECT_FALSE(window.visible());
}

TEST(PopUp, AClickHidesItAndStopsItsTimer) {
  ui::headless::HeadlessFrontEnd front_end;
  frmPopUp window(front_end);
  window.PopUpCenterScreen("text", 6'000, 1'000, 60'000);
  EXPECT_EQ(window.bounds(), (ui::Rect{11'400, 7'600, 6'000, 1'000}));
  front_end.Post([&] { ui::headless::Click(window.lblMessage); });
  window.WaitUntilHidden();
  EXPECT_FALSE(window.Timer1.running());
}

}  // namespace
}  // namespace report
