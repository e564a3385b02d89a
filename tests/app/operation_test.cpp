#include "app/confirmation/frmConfirmOperation.h"
#include "app/operation/run_result.h"
#include "tests/app/program.h"

namespace app::test {

using platform::memory::Call;
using namespace ui::headless;

struct Operations : testing::Test, Program {
  Operations() : Program({"/src/a=hello"}) {}

  /// What a step came to in the report window.
  void Note(const std::string& step) { story.Note(step, window->ReportWindow(), Heard()); }
  void Press(const std::string& step, ui::Button& button) {
    Click(button);
    Note(step);
  }
  /// Whenever an operation is to be confirmed, the user acts, and starts it.
  void Confirm(const std::function<void(frmConfirmOperation&)>& act) {
    InOpenWindow<frmConfirmOperation>([act](frmConfirmOperation& form) {
      act(form);
      Click(form.cmdStart);
    });
  }

  Story story{"app/told/"};
};
using UnattendedRun = Operations;

TEST_F(UnattendedRun, BacksUpSaysSoAndEndsWithTheExitCodeOfWhatHappenedAndAsksNobody) {
  const auto ends = [&](const std::string& what, int exit_code, void (*arrange)(Program&)) {
    Program program({"/src/a=hello", "/src/b"});
    arrange(program);
    program.StartWithSetup("nightly");
    EXPECT_TRUE(program.dialogs.asked.empty());
    EXPECT_FALSE(program.front_end.quitting() || program.window->RunningFromCommandLine ||
                 program.shell.awake != 0);
    story.Note(what, program.window->ReportWindow(), program.Heard());
    story.Note("Behind it", *program.window);
    program.window->UserClosed();
    EXPECT_EQ(program.front_end.Run(), exit_code) << what;
  };
  ends("All is well", 0, [](Program&) {});
  ends("No period was ever chosen", 0, [](Program& p) { p.setup.ModifiedSince = -1; });
  ends("A pipe", 1, [](Program& p) { p.files.AddPipe("/src/pipe"); });
  ends("A folder has gone", 1, [](Program& p) { p.setup.IncludedFolders = {"gone"}; });
  ends("Nothing can be read", 2, [](Program& p) { p.files.Fail(Call::kReadSource, "", {}); });
  ends("Nothing gets to the disk", 2, [](Program& p) { p.files.Fail(Call::kFlush, "", {}); });
  ends("The target is not listed", 2, [](Program& p) { p.files.Fail(Call::kOpenFolder, "/dst", {}); });
  ends("Stopped", 3, [](Program& p) { p.WhenACopyBegins([&p] { p.window->StopOperation(); }); });
  ends("The target has gone", 4, [](Program& p) { p.files.Remove("/dst"); });
}

TEST_F(UnattendedRun, IsRefusedWhileAnotherCopiesIntoItsTarget) {
  const std::string lock = "/dst/.quorvane-lock";
  WhenACopyBegins([&] { story.told += files.ContentOf(lock) + "\n"; });
  StartWithSetup("nightly");
  EXPECT_FALSE(files.Exists(lock));
  files.AddFile("/src/b", "new");
  for (const bool on_its_volume : {true, false}) {
    if (!on_its_volume) files.Fail(Call::kLock, lock, {});
    std::unique_ptr<platform::FileLock> other;
    files.Before([&, once = true](Call call, const std::string& path) mutable {
      if (call != Call::kLock || path.ends_with("-lock") != on_its_volume || !std::exchange(once, false))
        return;
      other = std::move(*files.Lock(path, "another\nprogram"));
    });
    StartWithSetup("nightly");
    Note("Another program has locked it");
    EXPECT_EQ(tree::Below(files, "/dst").find("b="), std::string::npos);
  }
  files.Before({});
  files.Fail(Call::kLock, "", {});
  StartWithSetup("where nothing can be locked");
  EXPECT_EQ(tree::Below(files, "/dst"), "a=hello b=new");
}

TEST_F(UnattendedRun, QuitEndsItAsCancelledWithoutAShutdown) {
  for (const bool at_once : {false, true}) {
    Program program({"/src/a"});
    if (at_once) program.front_end.Post([&] { Click(program.window->cmdQuit); });
    program.WhenACopyBegins([&] { Click(program.window->cmdQuit); });
    program.StartWithSetup("shutdown");
    EXPECT_EQ(program.printed.empty(), at_once);
    EXPECT_EQ(program.front_end.Run(), at_once ? 0 : 3);
    EXPECT_TRUE(program.shell.shut_downs.empty());
    EXPECT_FALSE(program.window->visible() || program.window->ReportWindow().visible());
  }
}

TEST_F(UnattendedRun, ShutsDownWhenTheWordIsInTheCommandLineUnlessTheUserCallsItOff) {
  for (const std::string words :
       {"shutdown", "nightly ShutDown, escape", "shutdown without display", "shut down"}) {
    Program program({"/src/a"});
    program.context.has_display = words != "shutdown without display";
    program.front_end.when_idle = [&] {
      frmMain& main = *program.window;
      if (!main.PopUpWindow().visible()) return;
      story.Note(words, main.PopUpWindow(), program.Heard());
      story.Note("Behind it", main);
      EXPECT_EQ(main.PopUpWindow().Timer1.interval(), 60s);
      words == "shutdown" ? Click(main.PopUpWindow().lblMessage) : main.UserPressedEscape();
    };
    program.StartWithSetup(words);
    story.Note(words + ", at the end", *program.window, program.Heard());
  }
}

TEST_F(Operations, AreConfirmedUntilTheUserHasEnoughAndCopyWhatTheConfirmationCounts) {
  tree::Add(files, {"/src/in/1", "/src/in/link>/src/out", "/src/in/file>/src/a", "/src/in/dead>/nowhere",
                    "/src/out/2", "/src/in/disk/3", "/src/in/4=like", "/src/in/5=and b", "/src/in/6=and c"});
  files.AddMountPoint("/src/in/disk");
  files.MountAgain("/dst", "/src/in");
  setup.IncludedFolders = {"in"};
  setup.IncludeSubfolders = true;
  StartWithSetup();
  bool start = false;
  InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& form) {
    story.Note("Confirmation", form);
    Tick(form.chkDontShowAgain, true);
    Click(start ? form.cmdStart : form.cmdCancel);
  });
  Click(window->cmdBackupModifiedFiles);
  EXPECT_FALSE(window->SkipConfirmation) << "nothing was started";
  std::string details;
  files.Before([&](auto, const std::string&) {
    clock.Advance(std::chrono::seconds(1));
    details += window->ReportWindow().lblDetails.text();
  });
  Click(window->cmdCheckBackupState);
  EXPECT_EQ(details, "") << "the counts were those of a run that never began";
  start = true;
  Press("Copied", window->cmdBackupModifiedFiles);
  EXPECT_TRUE(window->SkipConfirmation);
}

TEST_F(Operations, TheTargetIsTheOneThatWasConfirmedAndARefusalOpensNoReport) {
  setup.FileExtension = "none";
  StartWithSetup();
  Confirm([](auto&) {});
  Press("Nothing to be copied", window->cmdBackupModifiedFiles);
  story.Note("The run's own files are none of the target's", *window);
  window->ReportWindow().UserClosed();
  Confirm([this](auto&) {
    files.Remove("/dst");
    files.AddFolder("/dst");
  });
  Press("Another target", window->cmdBackupModifiedFiles);
  window->SkipConfirmation = true;
  files.Remove("/dst");
  Press("No target", window->cmdBackupAllFiles);
}

TEST_F(Operations, CompareContentsOnceThatIsTickedAlsoWhereNothingIsStartedButNeverUnattended) {
  tree::Add(files, {"/dst/a=hullo"});
  StartWithSetup("nightly");
  Note("Unattended");
  bool ticks = true;
  InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& form) {
    if (ticks) Tick(form.chkCompareContents, true);
    EXPECT_TRUE(form.ComparesContents());
    Click(std::exchange(ticks, false) ? form.cmdCancel : form.cmdStart);
  });
  Click(window->cmdBackupModifiedFiles);
  Press("Checked", window->cmdCheckBackupState);
  Press("Backed up", window->cmdBackupModifiedFiles);
  EXPECT_EQ(tree::Below(files, "/dst"), "a=hello");
  Press("Checked again", window->cmdCheckBackupState);
}

TEST_F(Operations, ReadCopiesBackFromWhenThatIsTickedUntilTheProgramEnds) {
  tree::Add(files, {"/src/b=1"});
  StartWithSetup();
  files.Garble("/dst/b");
  Confirm([ticks = true](frmConfirmOperation& form) mutable {
    if (std::exchange(ticks, false)) Tick(form.chkReadBack, true);
  });
  for (int run = 0; run < 2; ++run) Press("One of two is bad", window->cmdBackupAllFiles);
}

TEST(ResultLine, TellsOfAComparisonOnlyWhereOneWasMade) {
  engine::RunOutcome outcome;
  outcome.totals.counts.compared = 9;
  outcome.totals.counts.differed = 1;
  const std::string always = "RESULT status=ok new=0 modified=0 copied=0 failed=0 bytes=0 seconds=2";
  EXPECT_EQ(ResultLine(outcome, 1.5), always);
  outcome.compared_contents = true;
  EXPECT_EQ(ResultLine(outcome, 1.5), always + " compared=9 differed=1");
}

}  // namespace app::test
