#include "tests/report/report_scene.h"

namespace report {

using namespace std::chrono_literals;

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
    ui::headless::Click(window.cmdCopyToClipboard);
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

TEST_F(ReportButtons, TheTitleBarPausesARunningOperationAndAsksWhetherToCancelAPausedOne) {
  front_end.dialogs().yes_no = {std::nullopt, true};
  for (const bool yes : {false, true}) {
    front_end.Post([&] { window.UserClosed(); });
    front_end.Post([&] {
      window.UserClosed();
      EXPECT_NE(window.Paused, yes);
      EXPECT_TRUE(window.visible());
      if (!yes) Click(window.cmdPauseContinue);
    });
    window.Output("line", true);
    EXPECT_EQ(stop, yes);
  }
  EXPECT_EQ(front_end.dialogs().asked.size(), 2U);
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

TEST_F(ReportButtons, AReportCanBeHiddenInEveryPauseAndIsShownAgainAtTheEnd) {
  window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
  EXPECT_TRUE(ui::headless::Tick(window.chkSuppressDisplayOfReport, true));
  EXPECT_FALSE(window.txbText.visible());
  window.cmdPauseContinue_Click();
  Click(window.cmdCancelClose);
  window.cmdPauseContinue_Click();
  EXPECT_EQ(Shown(), "[Close]");
  window.SetReportButtons("Close");
  EXPECT_TRUE(window.txbText.visible());
}

TEST_F(ReportButtons, ASecondClickOnCancelDoesNotCloseTheReport) {
  for (const bool late : {false, true}) {
    window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
    ui::headless::Click(window.cmdCancelClose);
    if (late) clock.Sleep(1s);
    ui::headless::Click(window.cmdCancelClose);
    EXPECT_EQ(window.visible(), !late);
  }
}

TEST_F(ReportButtons, AnEndIsToldEverywhereAndTheNextReportBeginsWithNothingOfIt) {
  window.OutputProblem("Not copied: a");
  window.ShowFileAtHand("/data/a");
  window.ShowBytesCopied("Copied: 1 byte");
  window.DisplayFreeSpace("/", "1 Gb");
  window.ShowProgress(0.5, "1 of 2 files", "a minute left");
  EXPECT_EQ(window.text() + "|" + window.lblDetails.text(),
            "50 %, a minute left - Report|1 of 2 files, a minute left");
  EXPECT_TRUE(window.Label1.visible() && window.lblFileName.tool_tip() == "/data/a");
  window.SetReportButtons("Close");
  EXPECT_FALSE(window.task_progress() || window.barProgress.visible() || window.lblFileName.visible());
  EXPECT_EQ(window.lblDetails.text(), "");
  window.ShowEnd("Done", "1 file failed", EndKind::kBad);
  EXPECT_EQ(window.text() + "|" + window.lblState.tool_tip(), "! 1 file failed - Done|! 1 file failed");
  EXPECT_TRUE(window.task_progress() == 1 && window.task_state() == ui::TaskState::kFailed);
  EXPECT_TRUE(window.cmdOpenTarget.visible() && window.cmdCancelClose.description() == "1 file failed");
  window.BeginReport({.title = "Next", .source_folder = "/new"});
  EXPECT_EQ(window.text() + window.txbText.text() + window.lblBytesCopied.text() + window.lblFreeSpace.text(),
            "0 % - Next");
  EXPECT_EQ(window.lblSourceDirpath.text() + window.lblSourceDirpath.tool_tip(), "/new/new");
  EXPECT_EQ(window.lblTargetDirpath.text() + window.lblTargetDirpath.tool_tip(), "");
  EXPECT_FALSE(window.lblTargetCaption.visible() || window.cmdNextProblem.visible() ||
               window.cmdOpenTarget.visible());
  EXPECT_TRUE(window.barProgress.visible() && window.barProgress.fraction() == 0 &&
              window.txbText.has_focus());
  EXPECT_TRUE(window.task_state() == ui::TaskState::kRunning && window.cmdCancelClose.description().empty());
  window.SetReportButtons("Close");
  EXPECT_FALSE(window.cmdNextProblem.visible()) << "the problem was the last report's";
}

TEST_F(ReportButtons, TheKeyThatStartedTheRunDoesNotPauseIt) {
  ui::headless::PressSpace(window);
  window.UserPressedEnter();
  window.Output("line", true);
  EXPECT_EQ(Shown() + " " + window.text(), "[Pause] 0 % - Report");
}

TEST_F(ReportButtons, F8GoesFromProblemToProblemAndRoundAndFindFromPlaceToPlace) {
  window.OutputProblem("Not copied: a");
  window.Output("line", true);
  window.OutputProblem("Not copied: b");
  EXPECT_FALSE(window.cmdNextProblem.visible()) << "a running report scrolls back to its end";
  window.SetReportButtons("Close");
  EXPECT_TRUE(window.cmdNextProblem.visible());
  std::string visited;
  const auto press = [&](ui::Key key, bool shift) {
    EXPECT_TRUE(ui::headless::PressKey(window, {key, {}, shift}));
    visited += std::to_string(window.txbText.selection().start) + " ";
  };
  press(ui::Key::kF8, false);
  press(ui::Key::kF8, false);
  press(ui::Key::kF8, false);
  press(ui::Key::kF8, true);
  EXPECT_TRUE(ui::headless::PressKey(window, {ui::Key::kFind}));
  ui::headless::Type(window.txbFind, "NOT COPIED: ");
  ui::headless::Click(window.cmdFindNext);
  press(ui::Key::kF3, false);
  press(ui::Key::kF3, true);
  EXPECT_EQ(visited, "0 21 0 21 21 0 ");
}

}  // namespace report
