#include <gtest/gtest.h>

#include "tests/app/program.h"

namespace app {
namespace {

using platform::memory::Call;
using test::Program;
using namespace ui::headless;

TEST(UnattendedRun, BacksUpSaysSoOnStandardOutputAndKeepsTheSetup) {
  Program program;
  auto setup = program.SourceAndTarget();
  setup.ModifiedSince = -1;  // no period chosen
  program.SaveLastRun(setup);
  program.files.AddFile("/src/a.txt", "hello", {1000, 0});
  frmMain& window = program.Start("nightly");
  EXPECT_EQ(program.files.ContentOf("/dst/a.txt"), "hello");
  ASSERT_GE(program.printed.size(), 6U);
  EXPECT_EQ(program.printed.end()[-6], "For files new or modified at any time:");
  EXPECT_EQ(program.printed.back(), "RESULT status=ok new=1 modified=0 copied=1 failed=0 bytes=5 seconds=0");
  EXPECT_TRUE(program.front_end.dialogs().asked.empty());
  EXPECT_TRUE(program.shell.commands.empty());
  EXPECT_FALSE(program.front_end.quitting());
  EXPECT_FALSE(window.RunningFromCommandLine);
  EXPECT_EQ(window.chkSaveSetupOnQuit.value(), 1);
  EXPECT_EQ(program.shell.awake, 0);
}

struct EndingCase {
  const char* status;
  int exit_code;
  void (*arrange)(Program&);
};

TEST(UnattendedRun, EndsWithTheExitCodeOfWhatHappened) {
  for (const EndingCase& c : std::vector<EndingCase>{
           {"ok", 0, [](Program&) {}},
           {"warnings", 1, [](Program& p) { p.files.AddPipe("/src/pipe"); }},
           {"failed", 2,
            [](Program& p) {
              p.files.Fail(Call::kReadSource, "", {platform::ErrorKind::kAccessDenied, 13, ""});
            }},
           {"cancelled", 3,
            [](Program& p) {
              p.files.Before([&p](Call call, const std::string&) {
                if (call == Call::kCopyFile) p.window->StopOperation();
              });
            }},
           {"cancelled", 3,
            [](Program& p) {
              p.files.Before([&p](Call call, const std::string&) {
                if (call == Call::kCopyFile) Click(p.window->cmdQuit);
              });
            }},
           {"failed", 2,
            [](Program& p) {
              p.files.Before([&p, tried = false](Call call, const std::string&) mutable {
                tried |= call == Call::kRemoveFile;  // of the probe in the target
                if (tried && call == Call::kSpace) p.files.SetSpace(0, 1000);
              });
            }},
           {"failed", 2,
            [](Program& p) {
              p.files.AddFile("/dst/a", "old", {}, platform::kReadOnly);
              p.files.KeepReadOnly("/dst/a");
            }},
           {"refused", 4, [](Program& p) { p.files.Remove("/dst"); }}}) {
    Program program;
    program.SaveLastRun(program.SourceAndTarget());
    program.files.AddFile("/src/a", "1");
    c.arrange(program);
    frmMain& window = program.Start("x");
    EXPECT_TRUE(program.printed.back().starts_with(std::string("RESULT status=") + c.status))
        << program.printed.back();
    EXPECT_TRUE(program.front_end.dialogs().asked.empty()) << c.status;
    if (!program.front_end.quitting()) window.UserClosed();
    EXPECT_EQ(program.front_end.Run(), c.exit_code) << c.status;
  }
}

TEST(UnattendedRun, SaysWhyItDidNotStart) {
  Program program;
  auto setup = program.SourceAndTarget();
  setup.TargetFolder = "/unplugged";
  program.SaveLastRun(setup);
  program.Start("x");
  ASSERT_EQ(program.printed.size(), 4U);
  EXPECT_EQ(program.printed[1], "Target folder /unplugged does not exist.");
  EXPECT_NE(program.printed[2].find("The backup did not start:"), std::string::npos) << program.printed[2];
}

TEST(UnattendedRun, ShutsDownOnlyWhenTheWordIsInTheCommandLine) {
  for (const auto& [words, shuts_down] : std::vector<std::pair<const char*, bool>>{
           {"shutdown", true}, {"nightly ShutDown please", true}, {"shut down", false}}) {
    Program program;
    program.SaveLastRun(program.SourceAndTarget());
    program.files.AddFile("/src/a", "1");
    program.front_end.when_idle = [&program] { Click(program.window->PopUpWindow().lblMessage); };
    program.Start(words);
    EXPECT_EQ(program.shell.commands.size(), shuts_down ? 2U : 0U) << words;
    EXPECT_TRUE(program.files.Exists("/dst/a"));
  }
}

TEST(UnattendedRun, QuitEndsItAsCancelledWithoutAShutdown) {
  for (const bool at_once : {false, true}) {
    Program program;
    program.SaveLastRun(program.SourceAndTarget());
    program.files.AddFile("/src/a", "1");
    if (at_once) program.front_end.Post([&] { Click(program.window->cmdQuit); });
    program.files.Before([&](Call call, const std::string&) {
      if (call == Call::kCopyFile) Click(program.window->cmdQuit);
    });
    program.Start("shutdown");
    EXPECT_EQ(program.printed.empty(), at_once);
    EXPECT_EQ(program.front_end.Run(), at_once ? 0 : 3);
    EXPECT_TRUE(program.shell.commands.empty());
    EXPECT_FALSE(program.window->visible() || program.window->ReportWindow().visible());
  }
}

TEST(UnattendedRun, EscapeCallsTheShutdownOffAndNoOperationBeginsMeanwhile) {
  Program program;
  program.SaveLastRun(program.SourceAndTarget());
  program.files.AddFile("/src/a", "1");
  bool offered = true;
  program.front_end.when_idle = [&] {
    if (!program.window->PopUpWindow().visible()) return;
    offered = program.window->cmdBackupAllFiles.reachable();
    program.window->UserPressedEscape();
  };
  frmMain& window = program.Start("shutdown");
  EXPECT_FALSE(offered);
  EXPECT_EQ(program.shell.commands.back().second, "/a");
  EXPECT_EQ(program.LastMessage(), "Shutdown cancelled");
  EXPECT_EQ(window.focused(), &window.cmdBackupModifiedFiles);
}

TEST(Operation, LocksTheMainWindowAndGivesItBack) {
  Program program;
  program.SaveLastRun(program.SourceAndTarget());
  program.files.AddFile("/src/a", "1");
  frmMain& window = program.Start();
  bool locked = false;
  program.files.Before([&](Call call, const std::string&) {
    if (call != Call::kCopyFile) return;
    locked = !window.fraMenu.enabled() && !window.cmdBackupAllFiles.reachable() &&
             !window.cmdSpecifyDirectory[0].reachable() && window.cmdQuit.reachable() &&
             window.chkPauseAfterFirstCopy.reachable();
  });
  window.SkipConfirmation = true;
  Click(window.cmdBackupModifiedFiles);
  EXPECT_TRUE(locked);
  EXPECT_TRUE(window.cmdBackupAllFiles.reachable());
  EXPECT_TRUE(window.ReportWindow().visible());
  EXPECT_EQ(window.lblTargetFolderIsEmpty.text(), "The target folder is not empty.");
}

TEST(Operation, QuitDuringARunStopsItAndLeavesNoHalfCopy) {
  Program program;
  program.SaveLastRun(program.SourceAndTarget());
  program.files.AddFile("/src/a", std::string(1000, 'a'));
  program.files.AddFile("/src/b", "b");
  program.files.SetBlockSize(10);
  frmMain& window = program.Start();
  window.SkipConfirmation = true;
  program.files.Before([&](Call call, const std::string&) {
    if (call == Call::kCopyFile) Click(window.cmdQuit);
  });
  Click(window.cmdBackupModifiedFiles);
  EXPECT_TRUE(program.files.NamesIn("/dst").empty());
  EXPECT_TRUE(program.front_end.quitting());
}

TEST(Operation, RefusalsAreMessageBoxesWithTheExclamationIcon) {
  Program program;
  program.SaveLastRun(program.SourceAndTarget());
  frmMain& window = program.Start();
  Click(window.cmdCheckBackupState);
  ASSERT_EQ(program.front_end.dialogs().asked.size(), 1U);
  EXPECT_EQ(program.front_end.dialogs().asked[0].icon, ui::Icon::kExclamation);
  EXPECT_EQ(program.LastMessage(), program.texts.GetProgramText(37));
}

}  // namespace
}  // namespace app
