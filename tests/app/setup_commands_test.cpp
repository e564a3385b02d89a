#include "services/setup_text.h"
#include "tests/app/program.h"
#include "text/text_numbers.h"

namespace app::test {

using namespace ui::headless;

struct SetupCommands : testing::Test, Program {
  SetupCommands() : Program({"/file.qvr=/src\r\n/dst\r\n 1 \r\n", "/there.qvr=old"}) { StartWithSetup(); }

  /// Setup, one of its commands, and one of that one's.
  void Press(ui::Button& first, ui::Button& second) {
    window->Clock2_Timer();
    Click(window->cmdSetup);
    Click(first);
    Click(second);
  }

  /// Names a file in the dialog of a command; gives the file that the window then shows as the one in use.
  std::string UseFile(ui::Button& command, std::optional<std::string> path, bool yes = false) {
    dialogs.texts = {std::move(path)};
    dialogs.yes_no = {yes};
    Press(command, window->setup_commands.cmdSaveSetupAsOperationFile);
    return window->txbSetupFile.visible() ? window->txbSetupFile.text() : "";
  }

  void FailToWrite() { files.Fail(platform::memory::Call::kReplaceFile, "", {}); }
};

TEST_F(SetupCommands, EveryWayOutLeadsBackToTheMainWindow) {
  frmMain& w = *window;
  const std::vector<ui::Button*> ways[] = {
      {&w.setup_commands.cmdKeepSetup},
      {&w.setup_commands.cmdClearSetup},
      {&w.setup_commands.cmdRestoreSetup},
      {&w.setup_commands.cmdSaveSetup, &w.setup_commands.cmdDontSaveSetup},
      {&w.setup_commands.cmdSaveSetup, &w.setup_commands.cmdSaveSetupForNextRun},
      {&w.setup_commands.cmdSaveSetup, &w.setup_commands.cmdSaveSetupInBothWays},
      {&w.setup_commands.cmdLoadSetup, &w.setup_commands.cmdSaveSetupInBothWays},
      {&w.setup_commands.cmdLoadSetup, &w.setup_commands.cmdSaveSetupForNextRun},
      {&w.setup_commands.cmdLoadSetup, &w.setup_commands.cmdSaveSetupAsOperationFile}};
  for (const auto& way : ways) {
    for (const bool by_escape : {true, false}) {
      EXPECT_TRUE(Click(w.cmdSetup));
      EXPECT_EQ(w.focused(), &w.setup_commands.cmdSaveSetup);
      EXPECT_FALSE(w.cmdBackupModifiedFiles.reachable() || w.lblWarningReFilesInUse.visible());
      if (way.size() == 2) Click(*way[0]);
      EXPECT_TRUE(by_escape ? w.UserPressedEscape() : Click(*way.back()));
      EXPECT_FALSE(w.setup_commands.fraSetup.visible() || w.setup_commands.fraSaveSetup.visible());
      EXPECT_TRUE(w.cmdSetup.reachable() && w.chkSaveSetupOnQuit.visible());
      EXPECT_TRUE(w.focused() != nullptr && w.lblWarningReFilesInUse.visible());
      w.Clock2_Timer();
    }
  }
}

TEST_F(SetupCommands, EveryEditAfterASaveMakesQuitSaveAgain) {
  frmMain& w = *window;
  const std::function<void()> edits[] = {
      [&] { Type(w.txbFileExtension, "jpg"); },
      [&] { Tick(w.chkPauseAfterFirstCopy, true); },
      [&] { Select(w.cboModifiedSince, 2); },
      [&] { Click(w.cmdClearFolder[1]); },
      [&] { UseFile(w.setup_commands.cmdLoadSetup, "/file.qvr"); },
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
  EXPECT_TRUE(w.SetupJustSaved) << "after a load of the last run";
}

TEST_F(SetupCommands, SavesInAFileOfTheRightExtensionOnly) {
  ui::Button& save = window->setup_commands.cmdSaveSetup;
  EXPECT_EQ(UseFile(save, "/a.qvr/name", true), "");
  EXPECT_EQ(Said(), "Setup files must have extension 'qvr'.");
  EXPECT_EQ(UseFile(save, "/name.QVR"), "/name.QVR") << "no question";
  EXPECT_EQ(files.ContentOf("/name.QVR"), services::SetupText(setup));
  UseFile(save, "/there.qvr", false);
  EXPECT_EQ(Said(), Text(text::kReplaceSetupFile) + " /there.qvr?");
  EXPECT_EQ(files.ContentOf("/there.qvr"), "old");
  EXPECT_EQ(UseFile(save, "/there.qvr", true), "/there.qvr");
  EXPECT_EQ(files.ContentOf("/there.qvr"), services::SetupText(setup));
  FailToWrite();
  EXPECT_EQ(UseFile(save, "/new.qvr"), "");
  EXPECT_EQ(Said(), Text(text::kSetupFileNotSaved) + " /new.qvr.");
}

TEST_F(SetupCommands, SavesInBothWaysUnlessTheFirstFails) {
  const report::frmPopUp& pop_up = window->PopUpWindow();
  Press(window->setup_commands.cmdSaveSetup, window->setup_commands.cmdSaveSetupInBothWays);
  EXPECT_TRUE(files.Exists(kLastRun) && !pop_up.visible()) << "only the setup file tells";
  dialogs.texts = {"/both.qvr"};
  Press(window->setup_commands.cmdSaveSetup, window->setup_commands.cmdSaveSetupInBothWays);
  EXPECT_TRUE(files.Exists("/both.qvr") && pop_up.visible());
  EXPECT_EQ(pop_up.left(), window->left() + window->fraMenu.left() + window->cmdSetup.left() + 160);
  FailToWrite();
  Press(window->setup_commands.cmdSaveSetup, window->setup_commands.cmdSaveSetupInBothWays);
  EXPECT_EQ(Said(), Text(text::kSetupNotSaved)) << "no file dialog comes after it";
}

TEST_F(SetupCommands, LoadsAFileAndTellsWhatIsWrongWithIt) {
  files.AddFile("/empty.qvr", services::SetupText({}));
  EXPECT_EQ(UseFile(window->setup_commands.cmdLoadSetup, "/empty.qvr"), "");
  EXPECT_EQ(UseFile(window->setup_commands.cmdLoadSetup, "/missing.qvr"), "");
  EXPECT_EQ(Said(), Text(text::kSetupNotRead) + "\r\n/missing.qvr");
  EXPECT_EQ(UseFile(window->setup_commands.cmdLoadSetup, "/file.qvr"), "/file.qvr");
  EXPECT_EQ(Said(), Text(text::kSetupEndsEarly) + "\r\n/file.qvr\r\n\r\n" + Text(text::kSetupPartlyLoaded));
  Click(window->cmdSetup);
  Click(window->cmdQuit);
  EXPECT_FALSE(window->setup_commands.fraSetup.visible() || front_end.quitting())
      << "as the release of a double click would";
  front_end.PassTime(1'000ms);
  Click(window->cmdQuit);
  EXPECT_TRUE(front_end.quitting());
}

}  // namespace app::test
