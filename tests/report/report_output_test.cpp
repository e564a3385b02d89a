
#include "tests/report/report_scene.h"

namespace report {

using namespace std::chrono_literals;

TEST(Output, OnlyACallWithTextRestoresTheWindows) {
  for (const bool with_text : {false, true}) {
    ReportScene scene;
    scene.window.UserSetState(ui::WindowState::kMinimised);
    scene.main.UserSetState(ui::WindowState::kMinimised);
    const int runs = scene.front_end.pending_runs;
    scene.window.Output(with_text ? "a" : "", with_text);
    EXPECT_EQ(scene.window.state() == ui::WindowState::kNormal, with_text);
    EXPECT_EQ(scene.main.state() == ui::WindowState::kNormal, with_text);
    EXPECT_EQ(scene.window.txbText.text(), with_text ? "a\r\n" : "");
    EXPECT_EQ(scene.front_end.pending_runs, runs + 1);
    scene.main.Hide();
    scene.main.UserSetState(ui::WindowState::kMinimised);
    scene.window.UserSetState(ui::WindowState::kMinimised);
    scene.window.Output("last words", true);
    EXPECT_EQ(scene.window.state(), ui::WindowState::kNormal);
    EXPECT_NE(scene.main.state(), ui::WindowState::kNormal) << "a hidden window stays away";
  }
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
  const std::function<void(ReportScene&)> cases[] = {
      [](ReportScene& scene) {
        scene.Begin({.is_unattended = true});
        scene.FillTo(61'441);
      },
      [](ReportScene& scene) { scene.stop = true; },
      [](ReportScene& scene) { scene.window.txbText.SetVisible(false); },
      [](ReportScene& scene) { scene.window.Hide(), scene.front_end.Quit(0); }};
  for (const auto& nobody_reads : cases) {
    ReportScene scene;
    scene.FillTo(61'441);
    nobody_reads(scene);
    scene.window.Output("dropped", true);
    EXPECT_EQ(scene.window.txbText.text(), "");
    EXPECT_NE(scene.window.visible(), scene.front_end.quitting());
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
  scene.window.OutputKept("end", true);
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
  for (int i = 0; i < 300; ++i) scene.window.OutputProblem("Not copied: some file");
  scene.window.RepeatLostProblems();
  const std::string text = scene.window.txbText.text();
  EXPECT_LE(text.size(), 1'000U);
  const std::size_t from = text.find("Lost:\r\n");
  const auto listed = std::count(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), '\n') - 2;
  const auto in_box = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(from), '\n') - 1;
  EXPECT_TRUE(text.ends_with("\nMore: " + std::to_string(300 - listed - std::max<std::ptrdiff_t>(in_box, 0)) +
                             "\r\n"))
      << text;
  EXPECT_GT(listed, 10);
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
