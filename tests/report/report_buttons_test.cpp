#include "tests/report/report_scene.h"

namespace report {

struct ReportButtons : testing::Test, ReportScene {
  /// The captions of the visible buttons, in the order Pause, Cancel, Copy.
  std::string Shown() const {
    std::string shown;
    const ui::Button* const buttons[] = {&window.cmdPauseContinue, &window.cmdCancelClose,
                                         &window.cmdCopyToClipboard};
    for (const ui::Button* button : buttons) shown += button->visible() ? "[" + button->text() + "]" : "";
    return shown;
  }

  std::string Copied() {
    window.cmdCopyToClipboard_Click();
    return front_end.clipboard().Text();
  }
};

TEST_F(ReportButtons, PauseHoldsTheOperationUntilContinue) {
  Click(window.cmdPauseContinue);
  front_end.Post([&] {
    EXPECT_EQ(Shown(), "[Continue][Cancel operation][Copy to clipboard]");
    EXPECT_EQ(window.txbText.text(), "");
    Click(window.cmdPauseContinue);
  });
  window.Output("Counting files ... ", false);
  EXPECT_EQ(Shown(), "[Pause]");
  EXPECT_FALSE(stop);
}

TEST_F(ReportButtons, APauseEndsWhenTheProgramEnds) {
  front_end.Post([&] { front_end.Quit(0); });
  window.cmdPauseContinue_Click();
  EXPECT_TRUE(front_end.quitting());
}

TEST_F(ReportButtons, TheTitleBarPausesARunningOperationAndLeavesAPausedOneAlone) {
  front_end.Post([&] { window.UserClosed(); });
  front_end.Post([&] {
    window.Form_Unload();
    EXPECT_TRUE(window.Paused && window.visible());
    Click(window.cmdPauseContinue);
  });
  window.Output("line", true);
  EXPECT_FALSE(window.Paused);
}

TEST_F(ReportButtons, ClosingEnablesTheMainWindowOnlyWhenNoOperationIsRunning) {
  window.SetReportButtons("Close");
  window.cmdCancelClose_Click();
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(enabled, 0);
  running = false;
  window.Show();
  window.UserClosed();
  EXPECT_EQ(enabled, 1);
}

TEST_F(ReportButtons, CopyTakesTheSelectionOrElseTheWholeReport) {
  window.SetReportButtons("Close");
  front_end.clipboard().SetText("before");
  EXPECT_EQ(Copied(), "before") << "from an empty report";
  window.Output("\xC3\xA4.b", true);
  EXPECT_EQ(Copied(), "\xC3\xA4.b\r\n");
  EXPECT_TRUE(window.cmdCancelClose.has_focus());
  window.txbText.Select({1, 2});
  window.txbText.UserReleasedMouse();
  EXPECT_EQ(window.cmdCopyToClipboard.text(), "Copy selected");
  EXPECT_EQ(Copied(), ".b");
  EXPECT_EQ(window.cmdCopyToClipboard.text(), "Copy all");
}

TEST_F(ReportButtons, AReportIsHiddenOnlyWhereNothingIsHalfDoneAndShownAgainAtTheEnd) {
  for (const std::int64_t files_met : {7, 9}) {
    counts = {3, 5, files_met, 9};
    window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
    EXPECT_EQ(ui::headless::Tick(window.chkSuppressDisplayOfReport, true), files_met == 9);
  }
  EXPECT_FALSE(window.txbText.visible());
  window.cmdPauseContinue_Click();
  Click(window.cmdCancelClose);
  window.cmdPauseContinue_Click();
  EXPECT_EQ(Shown(), "[Close]");
  window.SetReportButtons("Close");
  EXPECT_TRUE(window.txbText.visible());
}

}  // namespace report
