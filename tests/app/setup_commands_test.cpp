#include <gtest/gtest.h>

#include "services/setup_text.h"
#include "tests/app/program.h"
#include "text/text_numbers.h"

namespace app::test {
namespace {

using namespace ui::headless;

class SetupCommands : public testing::Test, protected Program {
 protected:
  SetupCommands() {
    SaveLastRun(SourceAndTarget());
    Start();
  }

  /// Setup, one of its commands, and one of that one's.
  void Press(ui::Button& first, ui::Button& second) {
    window->Clock2_Timer();
    Click(window->cmdSetup), Click(first), Click(second);
  }

  void UseFile(bool load, std::optional<std::string> path) {
    front_end.dialogs().texts = {std::move(path)};
    Press(load ? window->cmdLoadSetup : window->cmdSaveSetup, window->cmdSaveSetupAsOperationFile);
  }

  void FailToWrite() {
    files.Fail(platform::memory::Call::kReplaceFile, "", {platform::ErrorKind::kDiskFull, 28, ""});
  }
  std::string Text(int number) { return texts.GetProgramText(number); }
  std::string SetupFile() { return window->txbSetupFile.visible() ? window->txbSetupFile.text() : ""; }
};

TEST_F(SetupCommands, EveryWayOutLeadsBackToTheMainWindow) {
  frmMain& w = *window;
  using Buttons = std::vector<ui::Button*>;
  for (const Buttons& path : {Buttons{&w.cmdKeepSetup},
                              {&w.cmdClearSetup},
                              {&w.cmdRestoreSetup},
                              {&w.cmdSaveSetup, &w.cmdDontSaveSetup},
                              {&w.cmdSaveSetup, &w.cmdSaveSetupForNextRun},
                              {&w.cmdSaveSetup, &w.cmdSaveSetupInBothWays},
                              {&w.cmdLoadSetup, &w.cmdSaveSetupInBothWays},
                              {&w.cmdLoadSetup, &w.cmdSaveSetupForNextRun},
                              {&w.cmdLoadSetup, &w.cmdSaveSetupAsOperationFile}}) {
    for (const bool by_escape : {true, false}) {
      EXPECT_TRUE(Click(w.cmdSetup));
      EXPECT_EQ(w.focused(), &w.cmdSaveSetup);
      EXPECT_FALSE(w.cmdBackupModifiedFiles.reachable() || w.lblWarningReFilesInUse.visible());
      if (path.size() == 2) Click(*path[0]);
      EXPECT_TRUE(by_escape ? w.UserPressedEscape() : Click(*path.back()));
      EXPECT_FALSE(w.fraSetup.visible() || w.fraSaveSetup.visible());
      EXPECT_TRUE(w.cmdSetup.reachable() && w.chkSaveSetupOnQuit.visible());
      EXPECT_TRUE(w.focused() != nullptr && w.lblWarningReFilesInUse.visible());
      w.Clock2_Timer();
    }
  }
}

TEST_F(SetupCommands, EveryEditAfterASaveMakesQuitSaveAgain) {
  files.AddFile("/other.qvr", services::SetupText(SourceAndTarget()));
  frmMain& w = *window;
  const std::function<void()> edits[] = {
      [&] { Type(w.txbFileExtension, "jpg"); }, [&] { Tick(w.chkPauseAfterFirstCopy, true); },
      [&] { Select(w.cboModifiedSince, 2); },   [&] { Click(w.cmdClearFolder[1]); },
      [&] { UseFile(true, "/other.qvr"); },     [&] { Click(w.cmdSetup), Click(w.cmdRestoreSetup); },
  };
  const app::Setup before = w.CurrentSetup();
  for (const auto& edit : edits) {
    Press(w.cmdSaveSetup, w.cmdSaveSetupForNextRun);
    EXPECT_TRUE(w.SetupJustSaved);
    EXPECT_EQ(SavedLastRun(), w.CurrentSetup());
    edit();
    EXPECT_FALSE(w.SetupJustSaved);
  }
  EXPECT_EQ(w.CurrentSetup(), before) << "the last one restored it";
  Press(w.cmdLoadSetup, w.cmdSaveSetupForNextRun);
  EXPECT_TRUE(w.SetupJustSaved) << "after a load of the last run";
}

TEST_F(SetupCommands, SavesInAFileOfTheRightExtensionOnly) {
  files.AddFile("/there.qvr", "old");
  const auto save = [&](const char* path, bool yes) {
    front_end.dialogs().yes_no = {yes};
    UseFile(false, path);
    EXPECT_EQ(files.ContentOf(path) == services::SetupText(SourceAndTarget()), SetupFile() == path);
    return SetupFile() == path;
  };
  EXPECT_FALSE(save("/a.qvr/name", true));
  EXPECT_EQ(LastMessage(), "Setup files must have extension 'qvr'.");
  EXPECT_TRUE(save("/name.QVR", false)) << "no question";
  EXPECT_FALSE(save("/there.qvr", false));
  EXPECT_EQ(LastMessage(), Text(text::kReplaceSetupFile) + " /there.qvr?");
  EXPECT_TRUE(save("/there.qvr", true));
  FailToWrite();
  UseFile(false, "/new.qvr");
  EXPECT_EQ(LastMessage(), Text(text::kSetupFileNotSaved) + " /new.qvr.");
  EXPECT_EQ(SetupFile(), "");
}

TEST_F(SetupCommands, SavesInBothWaysUnlessTheFirstFails) {
  report::frmPopUp& pop_up = window->PopUpWindow();
  Press(window->cmdSaveSetup, window->cmdSaveSetupInBothWays);
  EXPECT_FALSE(pop_up.visible()) << "only the setup file tells";
  front_end.dialogs().texts = {"/both.qvr"};
  Press(window->cmdSaveSetup, window->cmdSaveSetupInBothWays);
  EXPECT_TRUE(files.Exists("/both.qvr") && pop_up.visible());
  EXPECT_EQ(pop_up.left(), window->left() + window->fraMenu.left() + window->cmdSetup.left() + 160);
  FailToWrite();
  Press(window->cmdSaveSetup, window->cmdSaveSetupInBothWays);
  EXPECT_EQ(LastMessage(), Text(text::kSetupNotSaved)) << "no file dialog comes after it";
}

TEST_F(SetupCommands, LoadsAFileAndTellsWhatIsWrongWithIt) {
  files.AddFile("/short.qvr", "/src\r\n/dst\r\n 1 \r\n");
  files.AddFile("/empty.qvr", services::SetupText({}));
  const std::string early = Text(text::kSetupEndsEarly) + "\r\n/short.qvr\r\n\r\n";
  const struct {
    const char *path, *shown;
    std::string message;
  } cases[] = {{"/short.qvr", "/short.qvr", early + Text(text::kSetupPartlyLoaded)},
               {"/missing.qvr", "", Text(text::kSetupNotRead) + "\r\n/missing.qvr"},
               {"/empty.qvr", "", ""}};
  for (const auto& c : cases) {
    front_end.dialogs().asked.clear();
    UseFile(true, c.path);
    EXPECT_EQ(SetupFile(), c.shown);
    EXPECT_EQ(front_end.dialogs().asked.size() == 2 ? LastMessage() : "", c.message);
    EXPECT_TRUE(Click(window->cmdSetup) && !window->fraSetup.visible()) << "a double click's release";
  }
  EXPECT_TRUE(Click(window->cmdQuit) && !front_end.quitting());
  front_end.PassTime(1'000);
  EXPECT_TRUE(Click(window->cmdQuit) && front_end.quitting());
}

}  // namespace
}  // namespace app::test
