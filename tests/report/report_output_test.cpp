#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "tests/report/report_scene.h"

namespace report {
namespace {

using std::chrono_literals::operator""s;

TEST(Output, OnlyACallWithTextRestoresTheWindows) {
  for (const bool with_text : {false, true}) {
    ReportScene scene;
    scene.window.UserSetState(ui::WindowState::kMinimised);
    scene.main.window.UserSetState(ui::WindowState::kMinimised);
    const int runs = scene.front_end.pending_runs;
    scene.window.Output(with_text ? "a" : "", with_text);
    const auto expected = with_text ? ui::WindowState::kNormal : ui::WindowState::kMinimised;
    EXPECT_EQ(scene.window.state(), expected);
    EXPECT_EQ(scene.main.window.state(), expected);
    EXPECT_EQ(scene.window.txbText.text(), with_text ? "a\r\n" : "");
    EXPECT_EQ(scene.front_end.pending_runs, runs + 1);
  }
}

TEST(Output, ResizesTheWindowOnlyForALongDetailedReport) {
  for (const auto& [characters, suppress] : {std::pair(500U, false), {501U, false}, {501U, true}}) {
    ReportScene scene;
    scene.main.suppress = suppress;
    const ui::Twips before = scene.window.height();
    scene.window.UserMoved({0, 0, 11'000, before - 300});  // the system's title is higher than expected
    scene.FillTo(characters);
    scene.window.Output("x", true);
    EXPECT_EQ(scene.window.height() > before, characters > 500 && !suppress);
    EXPECT_EQ(scene.window.width(), 11'000);
    EXPECT_EQ(scene.window.lblBytesCopied.top(), scene.window.txbText.bounds().bottom() + 100);
    EXPECT_EQ(scene.window.cmdCancelClose.top(), scene.window.lblBytesCopied.bounds().bottom() + 100);
    EXPECT_EQ(scene.window.txbText.bounds().bottom() + 1'400, scene.window.inner().height);
    scene.window.UserMoved({0, 0, 9'000, 7'000});
    scene.window.Output("x", true);
    EXPECT_EQ(scene.window.height(), 7'000);  // as the user wants it
  }
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
  EXPECT_EQ(scene.clock.sleeps(), (std::vector<std::chrono::milliseconds>{15s, 10s, 5s, 5s}));
}

TEST(Output, AFullBoxIsEmptiedAtOnceWhereNobodyReadsIt) {
  for (const bool ends : {false, true}) {
    ReportScene scene;
    scene.main.unattended = !ends;
    scene.FillTo(61'441);
    if (ends) {
      scene.window.Hide();
      scene.front_end.Quit(0);
    }
    scene.window.Output("dropped", true);
    EXPECT_EQ(scene.window.txbText.text(), "");
    EXPECT_EQ(scene.window.visible(), !ends);
    EXPECT_TRUE(scene.clock.sleeps().empty());
  }
}

TEST(Output, TheFullBoxShowsItsNoticeWithoutThePauseButton) {
  for (const bool snip : {false, true}) {
    ReportScene scene;
    scene.main.snip = snip;
    scene.main.capacity = 5'000;
    scene.FillTo(5'001);
    std::string shown;
    scene.front_end.Post([&] {
      shown = scene.window.txbText.text();
      EXPECT_FALSE(scene.window.cmdPauseContinue.visible());
    });
    scene.window.Output("dropped", true);
    EXPECT_EQ(shown, std::string(snip ? 5'001 - 3'048 : 5'001, 'x') + (snip ? "  [snip]" : "") +
                         "\r\n\r\nThe textbox is full.\r\nAfter 15 seconds the textbox will be emptied and "
                         "the report will continue.");
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
  EXPECT_EQ(scene.lines, "first line, long enough|second|third line, long enough|head and tail|");
}

}  // namespace
}  // namespace report
