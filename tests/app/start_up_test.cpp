#include "platform/path.h"
#include "tests/app/program.h"

namespace app::test {

using namespace ui::headless;

struct StartUp : testing::Test, Program {};
using Quit = StartUp;

TEST_F(StartUp, RemovesWhatAKilledProgramLeftAndKnowsThePreviousRun) {
  Start();
  EXPECT_TRUE(window->FormLoaded && shell.entered_root);
  EXPECT_EQ(window->lblPreviousRun.text() + Heard(), "");
  const std::string left = platform::ParentOf(kLastRun) + "/" + platform::MakeTemporaryName();
  files.AddFile(left, "of a program that was killed");
  files.AddFile(kLastRun, "");
  const std::int64_t changed = files.ChangedAt(left)->seconds;
  for (const int age : {60, 61}) {
    clock.Set({changed + age, 0});
    EXPECT_TRUE(Start().lblPreviousRun.text().starts_with("Previous run: "));
    EXPECT_TRUE(files.Exists(left) == (age == 60) && files.Exists(kLastRun));
  }
}

TEST_F(Quit, SavesTheSetupOnlyWhenAskedToAndNotTwiceAndNotByTheTitleBar) {
  const auto saves = [](bool ticked, bool just_saved, bool by_title_bar) {
    Program program;
    frmMain& main = program.Start();
    Tick(main.chkSaveSetupOnQuit, ticked);
    if (just_saved) main.MarkSetupSaved();
    by_title_bar ? main.UserClosed() : static_cast<void>(Click(main.cmdQuit));
    EXPECT_TRUE(program.front_end.quitting());
    return program.files.Exists(kLastRun);
  };
  EXPECT_FALSE(saves(false, false, false));
  EXPECT_TRUE(saves(true, false, false));
  EXPECT_FALSE(saves(true, true, false));
  EXPECT_FALSE(saves(true, false, true));
}

}  // namespace app::test
