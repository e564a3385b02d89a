#include "tests/contract/ui/contract_window.h"
#include "ui/win32/scale.h"
#include "ui/win32/wide_text.h"
#include "ui/win32/win32.h"
#include "ui/win32/window_peer.h"

// What only this front end can get wrong.
namespace contract {
namespace {

using ui::win32::HandleOf;

class Win32FrontEndTest : public FrontEndContract {
 protected:
  void Send(const ui::Control& control, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
    SendMessageW(HandleOf(control), message, wparam, lparam);
    front_end_.RunPendingEvents();
  }

  void WhenADialogIsOpen(std::function<void(HWND)> act) {
    driver_->Later([this, act] {
      const HWND dialog = GetLastActivePopup(HandleOf(window_));
      if (dialog != HandleOf(window_)) return act(dialog);
      WhenADialogIsOpen(act);
    });
  }

  static std::string ShownIn(const ui::Control& control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(HandleOf(control))), L'\0');
    GetWindowTextW(HandleOf(control), text.data(), static_cast<int>(text.size()) + 1);
    return ui::win32::FromWide(text);
  }
};

TEST_F(Win32FrontEndTest, AButtonDoesNotActWhenTheMouseIsDraggedOffIt) {
  window_.first.on_mouse_up = Count();
  Send(window_.first, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  Send(window_.first, WM_LBUTTONUP, 0, MAKELPARAM(5, 500));
  EXPECT_EQ(count_, 0);
  window_.label.on_mouse_up = Count();
  Send(window_.label, WM_LBUTTONUP, 0, MAKELPARAM(5, 500));
  EXPECT_EQ(count_, 0);
}

TEST_F(Win32FrontEndTest, AReportMayBeLongerThanTheSystemsUsualLimit) {
  std::string lines;
  for (int i = 0; i < 50; ++i) lines += std::string(99, 'x') + "\r\n";
  for (int i = 0; i < 14; ++i) window_.report.Append(lines);
  EXPECT_EQ(ShownIn(window_.report).size(), 14 * lines.size());
  EXPECT_GT(SendMessageW(HandleOf(window_.report), EM_GETFIRSTVISIBLELINE, 0, 0), 600);
}

TEST_F(Win32FrontEndTest, KeysInAReportMeanTheWindow) {
  window_.on_close = Count();
  window_.first.on_mouse_up = Count();
  window_.SetDefaultButton(&window_.first);
  window_.report.SetReadOnly(true);
  window_.report.SetFocus();
  driver_->Press(window_, Key::kEscape);
  EXPECT_EQ(count_, 0);
  driver_->Press(window_, Key::kEnter);
  EXPECT_EQ(count_, 1);
}

TEST_F(Win32FrontEndTest, ALetterAloneIsNoAccessKey) {
  window_.framed.on_mouse_up = Count();
  PostMessageW(HandleOf(window_.first), WM_CHAR, 'm', 0);
  front_end_.RunPendingEvents();
  EXPECT_EQ(count_, 0);
}

TEST_F(Win32FrontEndTest, TheWheelOverAClosedListScrollsWhatIsAround) {
  window_.list.SetListIndex(1);
  ui::DropDownList list(&window_.frame, "inside");
  list.SetItems({"a", "b"});
  window_.bar.SetRange(100, 40);
  window_.frame.SetScrollBar(&window_.bar);
  for (const ui::Control* over :
       {static_cast<ui::Control*>(&list), static_cast<ui::Control*>(&window_.list)}) {
    Send(*over, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
  }
  EXPECT_EQ(list.list_index(), -1);
  EXPECT_EQ(window_.list.list_index(), 1);
  EXPECT_EQ(window_.bar.value(), 10);
}

TEST_F(Win32FrontEndTest, AListThatIsLeftByEscapeKeepsItsChoice) {
  window_.list.on_click = Count();
  window_.list.SetListIndex(0);
  window_.list.SetFocus();
  Send(window_.list, CB_SHOWDROPDOWN, TRUE);
  Send(window_.list, WM_KEYDOWN, VK_DOWN);
  driver_->Press(window_, Key::kEscape);
  EXPECT_EQ(SendMessageW(HandleOf(window_.list), CB_GETCURSEL, 0, 0), 0);
  EXPECT_EQ(count_, 0);
}

TEST_F(Win32FrontEndTest, OnlyALabelWithAnAccessKeyMarksIt) {
  window_.label.SetText("R&D \xE2\x82\xAC");
  EXPECT_EQ(ShownIn(window_.label), "R&&D \xE2\x82\xAC");
  window_.label.SetAccessKey(0);
  EXPECT_EQ(ShownIn(window_.label), "R&D \xE2\x82\xAC");
}

TEST_F(Win32FrontEndTest, AFileNeedsNotExistAndTheCurrentFolderStays) {
  constexpr int kFileName = 1148;  // cmb13 of <dlgs.h>
  wchar_t before[MAX_PATH];
  wchar_t after[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, before);
  WhenADialogIsOpen([](HWND dialog) {
    SetDlgItemTextW(dialog, kFileName, L"C:\\windows\\new \x00E4");
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  });
  EXPECT_EQ(front_end_.dialogs().OpenFile(window_, {"Load setup", "Setup files (*.qvr)", "*.qvr"}),
            "C:\\windows\\new \xC3\xA4");
  GetCurrentDirectoryW(MAX_PATH, after);
  EXPECT_STREQ(before, after);
}

TEST_F(Win32FrontEndTest, QuitClosesAnOpenDialog) {
  WhenADialogIsOpen([this](HWND) { front_end_.Quit(2); });
  EXPECT_FALSE(front_end_.dialogs().AskYesNo(window_, {"Go on?", "", ui::Icon::kQuestion}));
  EXPECT_EQ(front_end_.Run(), 2);
}

struct CaptionCase {
  const char* text;
  char key;
  const wchar_t* caption;
};

TEST(Win32Text, CaptionsMarkTheAccessKeyAndKeepAmpersands) {
  const CaptionCase cases[] = {{"Back up", 'u', L"Back &up"},
                               {"Quit", 'q', L"&Quit"},
                               {"R&D", 'd', L"R&&&D"},
                               {"plain & simple", 0, L"plain && simple"},
                               {"none", 'x', L"none"}};
  for (const CaptionCase& c : cases) EXPECT_EQ(ui::win32::ToCaption(c.text, c.key), c.caption) << c.text;
}

struct TextCase {
  std::string utf8;
  std::wstring wide;
  bool comes_back;
};

TEST(Win32Text, EveryCharacterBecomesOneWithItsUnits) {
  const TextCase cases[] = {{"a\xC3\xA4\xE2\x82\xAC", L"a\x00E4\x20AC", true},
                            {"\xF0\x9F\x93\x81.txt", L"\xD83D\xDCC1.txt", true},
                            {"lone \xED\xA0\xBD", L"lone \xD83D", true},
                            {"\xFFx\xC3", L"\xFFFDx\xFFFD", false},
                            {"\xE0\x80\x80\xF4\xBF\xBF\xBF", L"\xFFFD\xFFFD", false},
                            {std::string("a\0b", 3),
                             L"a\xFFFD"
                             L"b",
                             false}};
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.utf8);
    EXPECT_EQ(ui::win32::ToWide(c.utf8), c.wide);
    EXPECT_EQ(ui::win32::FromWide(c.wide) == c.utf8, c.comes_back);
    const std::size_t characters = ui::win32::CharactersOf(c.utf8, c.wide.size());
    EXPECT_EQ(ui::win32::UnitsOf(c.utf8, characters), c.wide.size());
  }
}

TEST(Win32Scale, NeighboursStayNeighboursOnEveryScreen) {
  for (const UINT dpi : {96U, 120U, 144U, 168U, 192U}) {
    for (ui::Twips left = 0; left < 100; ++left) {
      const RECT one = ui::win32::ToPixels(ui::Rect{left, 0, 333, 15}, dpi);
      const RECT next = ui::win32::ToPixels(ui::Rect{left + 333, 0, 500, 15}, dpi);
      EXPECT_EQ(one.right, next.left) << left << " at " << dpi;
    }
  }
  EXPECT_EQ(ui::win32::ToPixels(1440, 144), 144);
  EXPECT_EQ(ui::win32::ToTwips(144, 144), 1440);
}

}  // namespace
}  // namespace contract
