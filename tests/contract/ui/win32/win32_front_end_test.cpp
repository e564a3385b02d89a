#include "tests/contract/ui/contract_window.h"
#include "ui/win32/scale.h"
#include "ui/win32/wide_text.h"
#include "ui/win32/window_peer.h"

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

TEST(Win32Text, AZeroDoesNotEndAText) {
  EXPECT_EQ(ui::win32::ToWide({"a\0b", 3}),
            L"a\xFFFD"
            L"b");
}

TEST(Win32Scale, NeighboursStayNeighboursOnEveryScreen) {
  for (const UINT dpi : {96U, 120U, 144U, 168U, 192U}) {
    for (ui::Twips left = 0; left < 100; ++left) {
      const RECT one = ui::win32::ToPixels(ui::Rect{left, 0, 333, 15}, dpi);
      const RECT next = ui::win32::ToPixels(ui::Rect{left + 333, 0, 500, 15}, dpi);
      EXPECT_EQ(one.right, next.left) << left << " at " << dpi;
    }
  }
}

}  // namespace contract
