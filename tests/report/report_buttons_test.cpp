#include "tests/report/report_scene.h"

namespace report {

using namespace std::chrono_literals;

struct ReportButtons : testing::Test, ReportScene {
  void Note(const std::string& step) { ReportScene::Note(story, step); }
  void Copy(const std::string& step) {
    ui::headless::Click(window.cmdCopyToClipboard);
    story.told += front_end.clipboard().Text() + "\n";
    Note(step);
  }

  Story story{"report/told/"};
};

TEST_F(ReportButtons, HoldTheOperationLetItGoOnAndAskBeforeItIsCancelled) {
  ui::headless::PressSpace(window);
  window.UserPressedEnter();
  window.Output("line", true);
  Note("The key that started the run does not pause it");
  Click(window.cmdPauseContinue);
  front_end.Post([&] {
    Note("Paused");
    story.told += ui::headless::Spoken(window);
    Click(window.cmdPauseContinue);
  });
  window.Output("Counting files ... ", false);
  Note("Continued");
  front_end.dialogs().yes_no = {std::nullopt, true};
  for (const bool yes : {false, true}) {
    front_end.Post([&] { window.UserClosed(); });
    front_end.Post([&] {
      Note("Closed by its title bar");
      window.UserClosed();
      Note("and once more");
      if (!yes) Click(window.cmdPauseContinue);
    });
    window.Output("line", true);
    Note("It goes on unless it is cancelled");
  }
}

TEST_F(ReportButtons, CopyTakesTheSelectionOrElseTheWholeReport) {
  window.SetReportButtons("Close");
  front_end.clipboard().SetText("before");
  Copy("From an empty report");
  window.Output("\xC3\xA4.b", true);
  Copy("All");
  window.txbText.Select({1, 2});
  window.txbText.UserReleasedMouse();
  Copy("The selection");
}

TEST_F(ReportButtons, AReportCanBeHiddenInEveryPauseIsShownAgainAtTheEndAndNotClosedByASecondClickOnCancel) {
  window.OutputProblem("Not copied: a");
  window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
  EXPECT_TRUE(ui::headless::Tick(window.chkSuppressDisplayOfReport, true));
  Note("Hidden");
  window.cmdPauseContinue_Click();
  Click(window.cmdCancelClose);
  window.cmdPauseContinue_Click();
  Note("Cancelled in the next pause");
  window.SetReportButtons("Close");
  Note("Ended");
  window.SetReportButtons2(true, true, "Continue", true, "Cancel operation");
  for (int click = 0; click < 2; ++click) ui::headless::Click(window.cmdCancelClose);
  Note("Two clicks on cancel");
  clock.Sleep(1s);
  ui::headless::Click(window.cmdCancelClose);
  Note("A later one");
}

TEST_F(ReportButtons, AnEndIsToldEverywhereAndTheNextReportBeginsWithNothingOfIt) {
  window.OutputProblem("Not copied: a");
  window.ShowFileAtHand("/data/a");
  window.ShowBytesCopied("Copied: 1 byte");
  window.DisplayFreeSpace("/", "1 Gb");
  window.ShowProgress(0.5, "1 of 2 files", "a minute left");
  Note("On the way");
  window.SetReportButtons("Close");
  Note("Ended");
  window.ShowEnd("Done", "1 file failed", EndKind::kBad);
  Note("How it ended");
  EXPECT_EQ(window.cmdCancelClose.description(), "1 file failed");
  story.told += ui::headless::Spoken(window);
  ui::headless::Click(window.cmdOpenTarget);
  ui::headless::PressKey(window, {ui::Key::kFind});
  window.Output("open", false);
  window.BeginReport({.title = "Next", .source_folder = "/new"});
  Note("The next one");
  EXPECT_EQ(window.cmdCancelClose.description(), "");
  window.SetReportButtons("Close");
  Note("The problem was the last report's");
}

TEST_F(ReportButtons, F8GoesFromProblemToProblemAndRoundAndFindFromPlaceToPlace) {
  window.OutputProblem("Not copied: a");
  window.Output("line", true);
  window.OutputProblem("Not copied: b");
  Note("A running report scrolls back to its end");
  const auto press = [&](ui::Key key, bool shift) {
    const bool used = ui::headless::PressKey(window, {key, {}, shift});
    Note(std::to_string(static_cast<int>(key)) + (shift ? " back" : "") + (used ? "" : " is not used"));
  };
  press(ui::Key::kF8, false);
  window.SetReportButtons("Close");
  window.txbText.Select({0, 0});
  for (const bool shift : {false, false, false, true}) press(ui::Key::kF8, shift);
  press(ui::Key::kF3, false);
  for (const char* const text : {"none", "", "NOT COPIED: "}) {
    EXPECT_TRUE(ui::headless::Type(window.txbFind, text));
    Note(std::string("Find ") + text);
  }
  window.txbText.Select({0, 0});
  for (const bool shift : {true, false, false, false}) press(ui::Key::kF3, shift);
  for (ui::Control* const focused :
       std::initializer_list<ui::Control*>{&window.cmdFindNext, &window.txbFind, &window.cmdCancelClose}) {
    ui::headless::PressKey(window, {ui::Key::kFind});
    focused->SetFocus();
    window.UserPressedEscape();
    Note("Escape");
  }
  press(ui::Key::kFind, false);
}

}  // namespace report
