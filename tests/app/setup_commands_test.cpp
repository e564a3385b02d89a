#include "services/setup_text.h"
#include "tests/app/program.h"

namespace app::test {

using namespace ui::headless;

struct SetupCommands : testing::Test, Program {
  SetupCommands() : Program({"/file.qvr=/src\r\n/dst\r\n 1 \r\n", "/there.qvr=old"}) {
    files.AddFile("/empty.qvr", services::SetupText({}));
    StartWithSetup();
  }

  void UseFile(const std::string& step, ui::Button& command, const std::string& path, bool yes = false) {
    dialogs.texts = {path};
    dialogs.yes_no = {yes};
    PressInSetup(command, window->setup_commands.cmdSaveSetupAsOperationFile);
    story.Note(step, *window, Heard());
  }
  void InBothWays(const std::string& step) {
    PressInSetup(window->setup_commands.cmdSaveSetup, window->setup_commands.cmdSaveSetupInBothWays);
    story.Note(step, *window, Heard());
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

}  // namespace app::test
