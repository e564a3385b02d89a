#include <gtest/gtest.h>

#include "tests/report/report_scene.h"

namespace report {
namespace {

using ui::headless::Click;
using ui::headless::Tick;

/// "Pause Cancel operation": the captions of the visible buttons, in the order Pause, Cancel, Copy.
std::string Shown(const frmReport& window) {
  std::string shown;
  for (const ui::Button* button :
       {&window.cmdPauseContinue, &window.cmdCancelClose, &window.cmdCopyToClipboard}) {
    if (button->visible()) shown += "[" + button->text() + "]";
  }
  return shown;
}

TEST(ReportButtons, PauseHoldsTheOperationUntilContinue) {
  ReportScene scene;
  EXPECT_EQ(Shown(scene.window), "[Pause]");
  std::vector<std::string> phases;
  scene.front_end.Post([&] { Click(scene.window.cmdPauseContinue); });
  scene.front_end.Post([&] {
    phases.push_back(Shown(scene.window));
    phases.push_back(scene.window.txbText.text());
    scene.front_end.Post([&] { Click(scene.window.cmdPauseContinue); });
  });
  scene.window.Output("Counting files ... ", false);
  EXPECT_EQ(phases, (std::vector<std::string>{"[Continue][Cancel operation][Copy to clipboard]", ""}));
  EXPECT_EQ(Shown(scene.window), "[Pause]");
  EXPECT_FALSE(scene.window.Paused);
  EXPECT_FALSE(scene.main.stop);
}

TEST(ReportButtons, CancelEndsThePauseAndAsksTheOperationToStop) {
  ReportScene scene;
  scene.front_end.Post([&] { Click(scene.window.cmdPauseContinue); });
  scene.front_end.Post([&] {
    EXPECT_EQ(scene.window.cmdCancelClose.width(), 2'000);
    Click(scene.window.cmdCancelClose);
  });
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

TEST(ReportButtons, CloseEnablesTheMainWindowOnlyWhenNoOperationIsRunning) {
  for (const bool running : {false, true}) {
    ReportScene scene;
    scene.window.SetReportButtons("Close");
    scene.main.running = running;
    EXPECT_TRUE(Click(scene.window.cmdCancelClose));
    EXPECT_FALSE(scene.window.visible());
    EXPECT_EQ(scene.main.enabled, running ? 0 : 1);
  }
}

TEST(ReportButtons, TheTitleBarPausesARunningOperationAndHidesAnEndedOne) {
  ReportScene scene;
  bool paused = false;
  scene.front_end.Post([&] { scene.window.UserClosed(); });
  scene.front_end.Post([&] {
    scene.window.UserClosed();
    paused = scene.window.Paused && scene.window.visible();
    Click(scene.window.cmdPauseContinue);
  });
  scene.window.Output("line", true);
  EXPECT_TRUE(paused);
  scene.window.SetReportButtons("Close");
  scene.main.running = false;
  scene.window.UserClosed();
  EXPECT_FALSE(scene.window.visible());
  EXPECT_EQ(scene.main.enabled, 1);
}

TEST(ReportButtons, CopyTakesTheSelectionOrElseTheWholeReport) {
  ReportScene scene;
  ui::Clipboard& clipboard = scene.front_end.clipboard();
  clipboard.SetText("before");
  scene.window.SetReportButtons("Close");
  Click(scene.window.cmdCopyToClipboard);
  EXPECT_EQ(clipboard.Text(), "before");
  scene.window.Output(
      "\xC3\xA4"
      "bc",
      true);
  Click(scene.window.cmdCopyToClipboard);
  EXPECT_EQ(clipboard.Text(),
            "\xC3\xA4"
            "bc\r\n");
  EXPECT_EQ(scene.window.cmdCopyToClipboard.text(), "Copy all");
  EXPECT_TRUE(scene.window.cmdCancelClose.has_focus());
  scene.window.txbText.Select({1, 2});
  Click(scene.window.cmdCopyToClipboard);
  EXPECT_EQ(clipboard.Text(), "bc");
}

TEST(ReportButtons, TheCopyCaptionFollowsTheSelection) {
  ReportScene scene;
  scene.window.Output("text", true);
  scene.window.txbText.Select({0, 2});
  scene.window.txbText.UserReleasedMouse();
  EXPECT_EQ(scene.window.cmdCopyToClipboard.text(), "Copy selected");
  const ui::Twips width = scene.window.cmdCopyToClipboard.width();
  scene.window.txbText.MoveCaretToEnd();
  scene.window.txbText.UserReleasedMouse();
  EXPECT_EQ(scene.window.cmdCopyToClipboard.text(), "Copy all");
  EXPECT_LT(scene.window.cmdCopyToClipboard.width(), width);
}

TEST(ReportButtons, HidingTheReportIsOfferedInAPauseWhereNothingIsHalfDone) {
  struct Case {
    RunningCounts counts;
    bool offered;
  };
  const Case cases[] = {{{3, 5, 7, 9}, false}, {{5, 5, 7, 9}, true}, {{3, 5, 9, 9}, true}};
  for (const Case& c : cases) {
    ReportScene scene;
    scene.main.counts = c.counts;
    scene.window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
    EXPECT_EQ(scene.window.chkSuppressDisplayOfReport.visible(), c.offered);
    scene.window.SetReportButtons2(true, true, "Pause", false, "");
    EXPECT_FALSE(scene.window.chkSuppressDisplayOfReport.visible());
  }
}

TEST(ReportButtons, AHiddenReportStaysHiddenUntilTheOperationHasEnded) {
  ReportScene scene;
  scene.front_end.Post([&] { Click(scene.window.cmdPauseContinue); });
  scene.front_end.Post([&] {
    EXPECT_TRUE(Tick(scene.window.chkSuppressDisplayOfReport, true));
    EXPECT_FALSE(scene.window.txbText.visible());
    EXPECT_FALSE(scene.window.cmdCopyToClipboard.visible());
    Click(scene.window.cmdPauseContinue);
  });
  scene.window.Output("line", true);
  scene.front_end.Post([&] { Click(scene.window.cmdPauseContinue); });
  scene.front_end.Post([&] {
    EXPECT_EQ(Shown(scene.window), "[Continue][Cancel operation]");
    Click(scene.window.cmdPauseContinue);
  });
  scene.window.Output("line", true);
  EXPECT_FALSE(scene.window.txbText.visible());
  scene.window.SetReportButtons("Close");
  EXPECT_TRUE(scene.window.txbText.visible());
  EXPECT_EQ(scene.window.txbText.text(), "line\r\nline\r\n");
}

TEST(ReportButtons, EveryControlHasASpokenNameAndKeysDoNotClash) {
  ReportScene scene;
  scene.window.ShowFileBeingCopied("/data/a");
  scene.window.ShowBytesCopied("Copied: 1");
  scene.window.DisplayFreeSpace("E:", "301.33 Mb");
  scene.window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
  EXPECT_EQ(scene.window.lblFreeSpace.text(), "Free on Drive E: 301.33 Mb");
  std::string keys;
  scene.window.ForEach([&](ui::Control& control) {
    EXPECT_NE(control.spoken_name(), "") << control.name();
    if (control.access_key() == 0) return;
    EXPECT_EQ(keys.find(control.access_key()), std::string::npos) << control.name();
    keys += control.access_key();
  });
  EXPECT_EQ(keys.size(), 5U);
}

}  // namespace
}  // namespace report
