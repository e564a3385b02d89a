#include <gtest/gtest.h>

#include <chrono>

#include "tests/report/report_scene.h"

namespace report {
namespace {

using std::chrono_literals::operator""s;
using Waits = std::vector<std::chrono::milliseconds>;

TEST(Output, AnEmptyCallOnlyLetsPendingEventsRun) {
  ReportScene scene;
  scene.FillTo(600);
  const ui::Rect before = scene.window.bounds();
  scene.window.UserSetState(ui::WindowState::kMinimised);
  const int runs = scene.front_end.pending_runs;
  scene.window.Output("", false);
  EXPECT_EQ(scene.front_end.pending_runs, runs + 1);
  EXPECT_EQ(scene.window.txbText.length(), 600U);
  EXPECT_EQ(scene.window.state(), ui::WindowState::kMinimised);
  EXPECT_EQ(scene.window.bounds(), before);
}

TEST(Output, BringsBothMinimisedWindowsBack) {
  ReportScene scene;
  scene.window.UserSetState(ui::WindowState::kMinimised);
  scene.main.window.UserSetState(ui::WindowState::kMinimised);
  scene.window.Output("a", true);
  EXPECT_EQ(scene.window.state(), ui::WindowState::kNormal);
  EXPECT_EQ(scene.main.window.state(), ui::WindowState::kNormal);
  EXPECT_EQ(scene.window.txbText.text(), "a\r\n");
}

TEST(Output, ResizesTheWindowOnlyForALongDetailedReport) {
  struct Case {
    std::size_t characters;
    bool suppress;
    bool resized;
  };
  const Case cases[] = {{500, false, false}, {501, false, true}, {501, true, false}};
  for (const Case& c : cases) {
    ReportScene scene;
    scene.main.suppress = c.suppress;
    const ui::Rect before = scene.window.bounds();
    scene.FillTo(c.characters);
    EXPECT_EQ(scene.window.bounds(), before);
    scene.window.Output("x", true);
    EXPECT_EQ(scene.window.height() > before.height, c.resized) << c.characters;
    EXPECT_EQ(scene.window.width(), 11'000);
    EXPECT_EQ(scene.window.lblBytesCopied.top(), scene.window.txbText.bounds().bottom() + 100);
    EXPECT_EQ(scene.window.cmdCancelClose.top(), scene.window.lblBytesCopied.bounds().bottom() + 100);
    EXPECT_EQ(scene.window.txbText.bounds().bottom() + 1'400, scene.window.inner().height);
  }
}

TEST(Output, LeavesTheSizeThatTheUserGaveTheWindow) {
  ReportScene scene;
  scene.FillTo(501);
  scene.window.UserMoved({0, 0, 9'000, 7'000});
  scene.window.InnerSizeIs({8'760, 6'415});
  scene.window.Output("x", true);
  EXPECT_EQ(scene.window.bounds(), (ui::Rect{0, 0, 9'000, 7'000}));
  EXPECT_EQ(scene.window.txbText.width(), 8'760 - 2 * scene.window.txbText.left() - 220);
}

TEST(Output, AFullBoxIsShownFor15Then10Then5SecondsAndEmptied) {
  ReportScene scene;
  for (int round = 0; round < 4; ++round) {
    scene.FillTo(61'440);
    scene.window.Output("\xC3\xA4", false);  // one character more than it may hold
    scene.window.Output("dropped", true);
    EXPECT_EQ(scene.window.txbText.text(), "");
    EXPECT_TRUE(scene.window.cmdPauseContinue.visible());
  }
  EXPECT_EQ(scene.clock.sleeps(), (Waits{15s, 10s, 5s, 5s}));
  scene.FillTo(61'440);
  scene.window.Output("fits", true);
  EXPECT_EQ(scene.clock.sleeps().size(), 4U);
}

TEST(Output, TheFullBoxShowsItsNoticeWithoutThePauseButton) {
  for (const bool snip : {false, true}) {
    ReportScene scene;
    scene.main.snip = snip;
    scene.main.capacity = 5'000;
    scene.FillTo(5'001);
    std::string shown;
    bool pause_visible = true;
    scene.front_end.Post([&] {
      shown = scene.window.txbText.text();
      pause_visible = scene.window.cmdPauseContinue.visible();
    });
    scene.window.Output("dropped", true);
    const std::string kept = snip ? std::string(5'001 - 3'048, 'x') + "  [snip]" : std::string(5'001, 'x');
    EXPECT_EQ(shown, kept +
                         "\r\n\r\nThe textbox is full.\r\nAfter 15 seconds the textbox will be emptied and "
                         "the report will continue.");
    EXPECT_FALSE(pause_visible);
  }
}

TEST(Output, TheLineSinkGetsEveryLineOnceEvenAcrossAFullBox) {
  ReportScene scene;
  scene.main.capacity = 10;
  scene.window.Output("first line, long enough\r\nsec", false);
  scene.window.Output("ond", true);  // finds the box full
  scene.window.Output("third line, long enough", true);
  scene.window.Output("head", false);  // finds the box full
  scene.window.Output(" and tail", true);
  scene.window.Output("", true);
  EXPECT_EQ(scene.lines, (std::vector<std::string>{"first line, long enough", "second",
                                                   "third line, long enough", "head and tail", ""}));
}

TEST(Output, AnEmptiedReportCountsAsOneWithoutALineEnd) {
  ReportScene scene;
  scene.main.capacity = 3;
  scene.window.Output("long", true);
  EXPECT_EQ(scene.window.line().state(), ReportLine::State::kClosed);
  scene.window.Output("dropped", true);
  EXPECT_EQ(scene.window.line().state(), ReportLine::State::kEmpty);
}

}  // namespace
}  // namespace report
