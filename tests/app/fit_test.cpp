#include "tests/app/program.h"

#include "app/confirmation/frmConfirmOperation.h"
#include "app/select_subfolders/frmSelectSubfolders.h"

/// Every window on the smallest screens that the program is made for.
namespace app::test {

/// The work areas of a screen of 1024 x 560 at 100 % and of one of 1366 x 728 at 150 %.
constexpr ui::Size kScreens[] = {{15'360, 8'400}, {13'660, 7'280}};
/// What a desktop's title and borders take.
constexpr ui::Twips kFrame = 480;

bool IsSeen(const ui::Control& control) {
  return control.visible() && dynamic_cast<const ui::Timer*>(&control) == nullptr;
}

bool Overlap(const ui::Rect& a, const ui::Rect& b) {
  return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

void ExpectInside(ui::Form& form, ui::Size screen) {
  EXPECT_GE(form.left(), 0) << form.name();
  EXPECT_GE(form.top(), 0) << form.name();
  EXPECT_LE(form.bounds().right(), screen.width) << form.name();
  EXPECT_LE(form.bounds().bottom(), screen.height) << form.name();
  EXPECT_LE(form.smallest().height + kFrame, screen.height) << form.name() << " need not scroll";
  form.ForEach([&](ui::Control& control) {
    if (!IsSeen(control)) return;
    EXPECT_TRUE(control.left() >= 0 && control.top() >= 0 && control.width() > 0 && control.height() > 0)
        << control.name();
    for (const ui::Control* other : control.parent()->controls()) {
      EXPECT_FALSE(other != &control && IsSeen(*other) && Overlap(control.bounds(), other->bounds()))
          << control.name() << " and " << other->name();
    }
    const bool in_window = control.parent() == &form;
    const ui::Rect around = control.parent()->bounds();
    EXPECT_LE(control.bounds().right(), around.width) << control.name();
    const auto* frame = dynamic_cast<const ui::Frame*>(control.parent());
    if (frame != nullptr && frame->scroll_bar() != nullptr && frame->scroll_bar()->visible()) return;
    EXPECT_LE(control.bounds().bottom(), around.height - (in_window ? kFrame : 0)) << control.name();
  });
}

TEST(Fit, EveryWindowLiesOnASmallScreenAndEveryControlInItsWindow) {
  for (const ui::Size screen : kScreens) {
    Program program({"/src/a/file", "/src/b/", "/opt/program/qvr_help.txt"});
    program.front_end.screen_size = screen;
    program.setup.IncludedFolders = {"a", "b"};
    frmMain& window = program.StartWithSetup();
    ExpectInside(window, screen);
    ui::headless::Click(window.cmdSetup);
    ExpectInside(window, screen);
    ui::headless::Click(window.setup_commands.cmdSaveSetup);
    ExpectInside(window, screen);
    ui::headless::Click(window.setup_commands.cmdDontSaveSetup);
    window.SkipConfirmation = true;
    ui::headless::Click(window.cmdBackupAllFiles);
    window.ReportWindow().ResizeForm(850, 20'000);
    ui::headless::PressKey(window.ReportWindow(), {ui::Key::kFind});
    ExpectInside(window.ReportWindow(), screen);
    frmView help(program.context);
    help.ShowFile("Help", "/gone", "the help", window);
    ExpectInside(help, screen);
    frmSelectSubfolders select(program.context, "/src", {"a"}, {"gone"});
    program.front_end.Post([&] {
      select.Form_Activate();
      ExpectInside(select, screen);
      select.cmdCancel_Click();
    });
    select.Choose(window);
    const std::string two_lines =
        "Nothing in the target comes from this source, as far as it was read. Is it "
        "meant for the backup of another folder, on this or another computer?";
    const std::vector<std::string> doubts(8, two_lines);
    frmConfirmOperation confirm(program.context, {program.setup, Operation::kBackupModifiedFiles, {}, false},
                                doubts);
    program.front_end.Post([&] {
      confirm.Form_Activate();
      ExpectInside(confirm, screen);
      confirm.cmdCancel_Click();
    });
    confirm.Confirm(window);
  }
}

}  // namespace app::test
