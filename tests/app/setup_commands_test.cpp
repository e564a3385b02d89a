#include "services/setup_text.h"
#include "tests/app/program.h"

namespace app::test {

using namespace ui::headless;

struct SetupCommands : testing::Test, Program {
  SetupCommands() : Program({"/file.qvr=/src\r\n/dst\r\n 1 \r\n", "/there.qvr=old"}) {
    files.AddFile("/empty.qvr", services::SetupText({}));
    StartWithSetup();
  }

  /// Setup, one of its commands, and one of that one's; gives all that is said.
  std::string Press(ui::Button& first, ui::Button& second) {
    window->Clock2_Timer();
    Click(window->cmdSetup);
    Click(first);
    Click(second);
    return Heard();
  }
  void UseFile(const std::string& step, ui::Button& command, const std::string& path, bool yes = false) {
    dialogs.texts = {path};
    dialogs.yes_no = {yes};
    story.Note(step, *window, Press(command, window->setup_commands.cmdSaveSetupAsOperationFile));
  }
  void InBothWays(const std::string& step) {
    story.Note(step, *window,
               Press(window->setup_commands.cmdSaveSetup, window->setup_commands.cmdSaveSetupInBothWays));
    story.Note("Beside it", window->PopUpWindow());
  }

  Story story{"app/told/"};
};

TEST_F(SetupCommands, SaveLoadAndLeadBackToTheMainWindowByEveryWay) {
  frmMain& w = *window;
  auto& c = w.setup_commands;
  const std::vector<ui::Button*> ways[] = {{&c.cmdKeepSetup},
                                           {&c.cmdClearSetup},
                                           {&c.cmdRestoreSetup},
                                           {&c.cmdSaveSetup, &c.cmdDontSaveSetup},
                                           {&c.cmdSaveSetup, &c.cmdSaveSetupForNextRun},
                                           {&c.cmdLoadSetup, &c.cmdSaveSetupForNextRun},
                                           {&c.cmdLoadSetup, &c.cmdSaveSetupAsOperationFile}};
  for (const auto& way : ways) {
    for (const bool by_escape : {true, false}) {
      EXPECT_TRUE(Click(w.cmdSetup));
      if (way.size() == 2) Click(*way[0]);
      EXPECT_TRUE(by_escape ? w.UserPressedEscape() : Click(*way.back()));
      story.Note(by_escape ? "Out by Escape" : way.back()->text(), w, Heard());
      w.Clock2_Timer();
    }
  }
  front_end.PassTime(10'000ms);
  InBothWays("Only the setup file would tell");
  dialogs.texts = {"/both.qvr"};
  InBothWays("In both ways");
  EXPECT_EQ(w.PopUpWindow().left(), w.left() + w.fraMenu.left() + w.cmdSetup.left() + 160);
  UseFile("A folder's extension is not the file's", c.cmdSaveSetup, "/a.qvr/name", true);
  UseFile("Capitals are the same", c.cmdSaveSetup, "/name.QVR");
  UseFile("What is there is not overwritten", c.cmdSaveSetup, "/there.qvr");
  EXPECT_EQ(files.ContentOf("/there.qvr"), "old");
  UseFile("Unless the user agrees", c.cmdSaveSetup, "/there.qvr", true);
  EXPECT_EQ(files.ContentOf("/there.qvr"), services::SetupText(setup));
  UseFile("An empty setup", c.cmdLoadSetup, "/empty.qvr");
  UseFile("No file", c.cmdLoadSetup, "/missing.qvr");
  UseFile("Half a file", c.cmdLoadSetup, "/file.qvr");
  Click(w.cmdSetup);
  Click(w.cmdQuit);
  story.Note("The second click that closed the dialog presses nothing", w);
  files.Fail(platform::memory::Call::kReplaceFile, "", {});
  InBothWays("In both ways, of which the first fails");
  UseFile("A disk that refuses", c.cmdSaveSetup, "/new.qvr");
  front_end.PassTime(1'000ms);
  Click(w.cmdQuit);
  EXPECT_TRUE(front_end.quitting());
}

TEST_F(SetupCommands, EveryEditAfterASaveMakesQuitSaveAgain) {
  frmMain& w = *window;
  const std::function<void()> edits[] = {
      [&] { Type(w.txbFileExtension, "jpg"); },
      [&] { Tick(w.chkPauseAfterFirstCopy, true); },
      [&] { Select(w.cboModifiedSince, 2); },
      [&] { Click(w.cmdClearFolder[1]); },
      [&] {
        dialogs.texts = {"/file.qvr"},
        Press(w.setup_commands.cmdLoadSetup, w.setup_commands.cmdSaveSetupAsOperationFile);
      },
      [&] { Click(w.cmdSetup), Click(w.setup_commands.cmdRestoreSetup); },
  };
  for (const auto& edit : edits) {
    Press(w.setup_commands.cmdSaveSetup, w.setup_commands.cmdSaveSetupForNextRun);
    EXPECT_TRUE(w.SetupJustSaved);
    EXPECT_EQ(files.ContentOf(kLastRun), services::SetupText(w.CurrentSetup()));
    edit();
    EXPECT_FALSE(w.SetupJustSaved);
  }
  EXPECT_EQ(w.CurrentSetup(), setup) << "the last one restored it";
  Press(w.setup_commands.cmdLoadSetup, w.setup_commands.cmdSaveSetupForNextRun);
  front_end.PassTime(10'000ms);
  EXPECT_TRUE(w.SetupJustSaved) << "after a load of the last run";
  front_end.PassTime(1'000ms);
  EXPECT_FALSE(w.SetupJustSaved) << "which is forgotten";
}

}  // namespace app::test
