
#include "tests/report/report_scene.h"

namespace report {

using namespace std::chrono_literals;

TEST(Output, OnlyACallWithTextRestoresTheWindowsAndAHiddenOneStaysAway) {
  ReportScene scene;
  for (const std::string text : {"", "a", "last words"}) {
    if (text == "last words") scene.main.Hide();
    scene.window.UserSetState(ui::WindowState::kMinimised),
        scene.main.UserSetState(ui::WindowState::kMinimised);
    const int runs = scene.front_end.pending_runs;
    scene.window.Output(text, !text.empty());
    EXPECT_EQ(scene.window.state() == ui::WindowState::kNormal, !text.empty());
    EXPECT_EQ(scene.main.state() == ui::WindowState::kNormal, text == "a");
    EXPECT_EQ(scene.front_end.pending_runs, runs + 1);
  }
  EXPECT_EQ(scene.window.txbText.text(), "a\r\nlast words\r\n");
}

TEST(Output, RefreshesASlowScreenLessOften) {
  ReportScene scene;
  for (const auto& [painting, every] :
       {std::pair(1ms, 100ms), {13ms, 260ms}, {600'000ms, 500ms}, {1ms, 100ms}}) {
    scene.clock.Advance(scene.window.shown_every());
    scene.front_end.Post([&, time = painting] { scene.clock.Advance(time); });
    scene.window.Output("x", true);
    EXPECT_EQ(scene.window.shown_every(), every);
  }
}

TEST(Output, ResizesTheWindowOnlyForALongDetailedReportAndNeverAgainstTheUser) {
  for (const auto& [characters, suppress] : {std::pair(500U, false), {501U, false}, {501U, true}}) {
    ReportScene scene;
    scene.Begin({.is_suppressed = suppress});
    const ui::Twips before = scene.window.height();
    scene.FillTo(characters);
    scene.window.Output("x", true);
    EXPECT_EQ(scene.window.height() > before, characters > 500 && !suppress);
    scene.window.UserMoved({0, 0, 9'000, 7'000});
    scene.window.Output("x", true);
    EXPECT_EQ(scene.window.height(), 7'000);
  }
}

TEST(Output, AFullBoxIsShownFor15Then10Then5SecondsWithoutThePauseButtonAndEmptied) {
  for (const bool snip : {false, true}) {
    ReportScene scene;
    scene.Begin({.loses_end_if_full = snip});
    scene.window.ReportCapacity = 5'000;
    for (const std::string seconds : {"15", "10", "5", "5"}) {
      scene.FillTo(5'000);
      scene.window.Output("x", false);  // one character more than it may hold
      std::string shown(snip ? 5'001 - 3'048 : 5'001, 'x');
      shown += snip ? "  [snip]" : "";
      shown += "\r\n\r\nThe textbox is full.\r\nAfter " + seconds;
      shown += " seconds the textbox will be emptied and the report will continue.";
      scene.front_end.Post([&] {
        EXPECT_EQ(scene.window.txbText.text(), shown);
        EXPECT_FALSE(scene.window.cmdPauseContinue.visible());
        EXPECT_EQ(scene.window.text() + scene.window.lblState.text(), "Waiting - ReportWaiting");
      });
      scene.window.Output("dropped", true);
      EXPECT_EQ(scene.window.txbText.text(), "");
      EXPECT_TRUE(scene.window.cmdPauseContinue.visible());
      EXPECT_EQ(scene.window.text() + scene.window.lblState.text(), "0 % - Report0 %");
    }
    EXPECT_EQ(scene.clock.sleeps(), (std::vector<std::chrono::milliseconds>{15s, 10s, 5s, 5s}));
  }
}

TEST(Output, AFullBoxIsEmptiedAtOnceWhereNobodyReadsIt) {
  for (int why = 0; why < 4; ++why) {
    ReportScene scene;
    scene.Begin({.is_unattended = why == 0});
    scene.FillTo(61'441);
    scene.stop = why == 1;
    scene.window.txbText.SetVisible(why != 2);
    if (why == 3) scene.window.Hide(), scene.front_end.Quit(0);
    scene.window.Output("dropped", true);
    EXPECT_EQ(scene.window.txbText.text(), "");
    EXPECT_EQ(scene.window.visible(), why != 3);
    EXPECT_TRUE(scene.clock.sleeps().empty());
  }
}

TEST(Output, ProblemsThatAFullBoxLostAreListedAgainAtTheEndAndOnlyThere) {
  ReportScene scene;
  scene.window.ReportCapacity = 100;
  scene.window.OutputProblem("Not copied: a");
  scene.FillTo(101);
  scene.window.OutputProblem("Not copied: b");
  scene.FillTo(101);
  scene.window.OutputKept("end", false);
  Story story{"report/told/"};
  scene.Note(story, "The end");
  scene.window.RepeatLostProblems();
  scene.Note(story, "Listed again");
  scene.window.SetReportButtons("Close");
  scene.window.cmdNextProblem.UserPressed();
  scene.Note(story, "Next problem");
  scene.window.RepeatLostProblems();
  scene.Note(story, "There is nothing more to list");
}

TEST(Output, OfLostProblemsAsManyAreListedAsHalfAReportHolds) {
  ReportScene scene;
  scene.window.ReportCapacity = 1'000;
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 301; ++i) scene.window.OutputProblem("Not copied: ten more");
    scene.window.RepeatLostProblems();
    const std::string text = scene.window.txbText.text().substr(scene.window.txbText.text().find("Lost:"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 25 + 1) << text;
    EXPECT_TRUE(text.ends_with(round == 0 ? "\nMore: 276\r\n" : "\nMore: 296\r\n")) << text;
  }
}

TEST(Output, TheLineSinkGetsEveryLineOnceEvenAcrossAFullBox) {
  ReportScene scene;
  scene.window.ReportCapacity = 10;
  scene.window.Output("first line, long enough\r\nsec", false);
  scene.window.Output("ond", true);  // finds the box full
  scene.window.Output("third line, long enough", true);
  scene.window.Output("head", false);  // finds the box full
  scene.window.Output(" and tail", true);
  EXPECT_EQ(scene.lines, "first line, long enough|second|third line, long enough|head and tail|");
}

}  // namespace report
