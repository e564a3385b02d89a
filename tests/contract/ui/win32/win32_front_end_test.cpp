#include "tests/contract/ui/contract_window.h"
#include "ui/win32/controls/window_peer.h"
#include "ui/win32/wide_text.h"

// What only this front end can get wrong.
namespace contract {

using Win32FrontEndTest = FrontEndContract;
using ui::win32::HandleOf;

TEST_F(Win32FrontEndTest, AReportMayBeLongerThanTheSystemsUsualLimit) {
  const HWND report = HandleOf(window_.report);
  std::string lines;
  for (int i = 0; i < 50; ++i) lines += std::string(99, 'x') + "\r\n";
  for (int i = 0; i < 14; ++i) window_.report.Append(lines);
  EXPECT_EQ(GetWindowTextLengthW(report), 14 * static_cast<int>(lines.size()));
  EXPECT_GT(SendMessageW(report, EM_GETFIRSTVISIBLELINE, 0, 0), 600);
}

TEST_F(Win32FrontEndTest, AListThatIsLeftByEscapeKeepsItsChoice) {
  const HWND list = HandleOf(window_.list);
  window_.list.on_click = Count();
  window_.list.SetListIndex(0);
  window_.list.SetFocus();
  SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
  driver_->Press(window_, kDown);
  driver_->Press(window_, kEscape);
  EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), 0);
  EXPECT_EQ(count_, 0);
}

TEST_F(Win32FrontEndTest, AWindowLargerThanItsScreenScrollsToTheFocus) {
  LargeWindow large(front_end_);
  Show(large);
  large.check.SetFocus();
  for (const bool still : {false, true}) {
    RECT place{};
    RECT inside{};
    GetWindowRect(HandleOf(large.check), &place);
    MapWindowPoints(nullptr, HandleOf(large), reinterpret_cast<POINT*>(&place), 2);
    GetClientRect(HandleOf(large), &inside);
    EXPECT_EQ(place.right, inside.right) << still;
    EXPECT_EQ(place.bottom, inside.bottom) << still;
    large.check.SetTop(large.check.top() - 15);
    large.check.SetTop(large.check.top() + 15);
  }
}

TEST_F(Win32FrontEndTest, TheFocusThatAClickMovesIsToldBetweenTheReleaseAndTheClick) {
  window_.check.on_click = [this] { EXPECT_TRUE(window_.check.has_focus()); };
  for (ui::Control* clicked : std::vector<ui::Control*>{&window_.first, &window_.check}) {
    window_.line.SetFocus();
    SendMessageW(HandleOf(*clicked), WM_LBUTTONDOWN, 0, 0);
    EXPECT_TRUE(window_.line.has_focus());
    SendMessageW(HandleOf(*clicked), WM_LBUTTONUP, 0, 0);
    EXPECT_TRUE(clicked->has_focus());
  }
}

TEST(Win32Text, AZeroDoesNotEndAText) { EXPECT_EQ(ui::win32::ToWide({"a\0", 2}), L"a\xFFFD"); }

}  // namespace contract
