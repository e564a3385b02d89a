#include <gtest/gtest.h>

#include "tests/report/report_scene.h"

namespace report {
namespace {

/// The captions of the visible buttons, in the order Pause, Cancel, Copy.
std::string Shown(const frmReport& window) {
  std::string shown;
  for (const auto* button : {&window.cmdPauseContinue, &window.cmdCancelClose, &window.cmdCopyToClipboard}) {
    if (button->visible()) shown += "[" + button->text() + "]";
  }
  return shown;
}

TEST(ReportButtons, PauseHoldsTheOperationUntilContinue) {
  ReportScene scene;
  EXPECT_EQ(Shown(scene.window), "[Pause]");
  scene.Click(scene.window.cmdPauseContinue);
  scene.front_end.Post([&] {
    EXPECT_EQ(Shown(scene.window), "[Continue][Cancel operation][Copy to clipboard]");
    EXPECT_EQ(scene.window.txbText.text(), "");
    scene.Click(scene.window.cmdPauseContinue);
  });
  scene.window.Output("Counting files ... ", false);
  EXPECT_EQ(Shown(scene.window), "[Pause]");
  EXPECT_FALSE(scene.main.stop);
}

TEST(ReportButtons, CancelEndsThePauseAndAsksTheOperationToStop) {
  ReportScene scene;
  scene.Click(scene.window.cmdPauseContinue);
  scene.front_end.Post([&] { EXPECT_EQ(scene.window.cmdCancelClose.width(), 2'000); });
  scene.Click(scene.window.cmdCancelClose);
  scene.window.Output("line", true);
  EXPECT_TRUE(scene.main.stop);
  EXPECT_EQ(Shown(scene.window), "[Close][Copy to clipboard]");
  EXPECT_EQ(scene.window.cmdCancelClose.width(), 1'000);
  EXPECT_EQ(scene.window.cmdCancelClose.bounds().right(), scene.window.txbText.bounds().right());
}

TEST(ReportButtons, APauseEndsWhenTheProgramEnds) {
  ReportScene scene;
  scene.front_end.Post([&] { scene.front_end.Quit(0); });
  scene.window.cmdPauseContinue_Click();
  EXPECT_TRUE(scene.front_end.quitting());
}

TEST(ReportButtons, TheTitleBarPausesARunningOperation) {
  ReportScene scene;
  scene.front_end.Post([&] { scene.window.UserClosed(); });
  scene.front_end.Post([&] {
    scene.window.UserClosed();
    EXPECT_TRUE(scene.window.Paused && scene.window.visible());
    scene.Click(scene.window.cmdPauseContinue);
  });
  scene.window.Output("line", true);
  EXPECT_FALSE(scene.window.Paused);
}

TEST(ReportButtons, ClosingEnablesTheMainWindowOnlyWhenNoOperationIsRunning) {
  ReportScene scene;
  scene.window.SetReportButtons("Close");
  scene.window.cmdCancelClose_Click();
  EXPECT_FALSE(scene.window.visible());
  EXPECT_EQ(scene.main.enabled, 0);
  scene.main.running = false;
  scene.window.Show();
  scene.window.UserClosed();
  EXPECT_FALSE(scene.window.visible());
  EXPECT_EQ(scene.main.enabled, 1);
}

TEST(ReportButtons, CopyTakesTheSelectionOrElseTheWholeReport) {
  ReportScene scene;
  ui::Clipboard& clipboard = scene.front_end.clipboard();
  clipboard.SetText("before");
  scene.window.SetReportButtons("Close");
  scene.window.cmdCopyToClipboard_Click();
  EXPECT_EQ(clipboard.Text(), "before");
  scene.window.Output("\xC3\xA4.b", true);
  scene.window.cmdCopyToClipboard_Click();
  EXPECT_EQ(clipboard.Text(), "\xC3\xA4.b\r\n");
  EXPECT_TRUE(scene.window.cmdCancelClose.has_focus());
  scene.window.txbText.Select({1, 2});
  scene.window.txbText.UserReleasedMouse();
  EXPECT_EQ(scene.window.cmdCopyToClipboard.text(), "Copy selected");
  scene.window.cmdCopyToClipboard_Click();
  EXPECT_EQ(clipboard.Text(), ".b");
  EXPECT_EQ(scene.window.cmdCopyToClipboard.text(), "Copy all");
}

TEST(ReportButtons, AReportIsHiddenOnlyWhereNothingIsHalfDoneAndShownAgainAtTheEnd) {
  ReportScene scene;
  scene.main.counts = {3, 5, 7, 9};
  scene.window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
  EXPECT_FALSE(ui::headless::Tick(scene.window.chkSuppressDisplayOfReport, true));
  scene.main.counts.files_met = 9;
  scene.window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
  EXPECT_TRUE(ui::headless::Tick(scene.window.chkSuppressDisplayOfReport, true));
  EXPECT_FALSE(scene.window.txbText.visible());
  EXPECT_EQ(Shown(scene.window), "[Continue][Cancel operation]");
  scene.window.cmdPauseContinue_Click();
  EXPECT_FALSE(scene.window.chkSuppressDisplayOfReport.visible());
  scene.Click(scene.window.cmdCancelClose);
  scene.window.cmdPauseContinue_Click();
  EXPECT_EQ(Shown(scene.window), "[Close]");
  scene.window.SetReportButtons("Close");
  EXPECT_TRUE(scene.window.txbText.visible());
}

}  // namespace
}  // namespace report
