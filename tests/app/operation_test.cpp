#include "app/confirmation/frmConfirmOperation.h"
#include "app/operation/run_result.h"
#include "tests/app/program.h"

namespace app::test {

using platform::memory::Call;
using namespace ui::headless;

struct Operations : testing::Test, Program {
  Operations() : Program({"/src/a=hello"}) {}
};
using UnattendedRun = Operations;

TEST_F(UnattendedRun, BacksUpSaysSoOnStandardOutputAndKeepsTheSetup) {
  setup.ModifiedSince = -1;  // no period chosen
  StartWithSetup("nightly");
  EXPECT_EQ(tree::Below(files, "/dst"), "a=hello");
  ASSERT_GE(printed.size(), 6U);
  EXPECT_EQ(printed.end()[-6], "For files new or modified at any time:");
  EXPECT_EQ(printed.back(), "RESULT status=ok new=1 modified=0 copied=1 failed=0 bytes=5 seconds=0");
  EXPECT_FALSE(front_end.quitting() || window->RunningFromCommandLine || shell.awake != 0);
  EXPECT_EQ(window->chkSaveSetupOnQuit.value(), 1);
}

TEST_F(UnattendedRun, EndsWithTheExitCodeOfWhatHappenedAndAsksNobody) {
  const auto ends = [](const std::string& status, int exit_code, void (*arrange)(Program&),
                       const std::string& told = "") {
    Program program({"/src/a", "/src/b"});
    arrange(program);
    program.StartWithSetup("x");
    EXPECT_TRUE(program.printed.back().starts_with("RESULT status=" + status)) << program.printed.back();
    EXPECT_EQ(program.Said(), "");
    EXPECT_TRUE(program.window->ReportWindow().lblState.text().ends_with(told)) << told;
    program.window->UserClosed();
    EXPECT_EQ(program.front_end.Run(), exit_code) << status;
  };
  ends("ok", 0, [](Program&) {});
  ends("warnings", 1, [](Program& p) { p.files.AddPipe("/src/pipe"); });
  ends("warnings", 1, [](Program& p) { p.setup.IncludedFolders = {"gone"}; });
  ends("failed", 2, [](Program& p) { p.files.Fail(Call::kReadSource, "", {}); });
  ends("failed", 2, [](Program& p) { p.files.Fail(Call::kFlush, "", {}); });
  ends(
      "failed", 2, [](Program& p) { p.files.Fail(Call::kOpenFolder, "/dst", {}); },
      "1 folder could not be read.");
  ends("cancelled", 3, [](Program& p) { p.WhenACopyBegins([&p] { p.window->StopOperation(); }); });
  ends("refused", 4, [](Program& p) { p.files.Remove("/dst"); });
}

TEST_F(UnattendedRun, IsRefusedWhileAnotherCopiesIntoItsTarget) {
  const std::string lock = "/dst/.quorvane-lock";
  std::string who;
  WhenACopyBegins([&] { who = files.ContentOf(lock); });
  StartWithSetup("nightly");
  EXPECT_EQ(who, "Quorvane (process 1), user user, computer computer, since 2023-11-14 22.13.20");
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
    EXPECT_TRUE(
        printed.end()[-2].ends_with("into this target: another\\nprogram. Start this backup again when "
                                    "the other one has ended."))
        << printed.end()[-2];
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
  using ShutDowns = std::vector<std::string>;
  const ShutDowns called_off = {"Cancellation possible.\r\nSee comment below", "called off"};
  const std::pair<std::string, ShutDowns> cases[] = {{"shutdown", called_off},
                                                     {"nightly ShutDown, escape", called_off},
                                                     {"shutdown without display", {""}},
                                                     {"shut down", {}}};
  for (const auto& [words, shut_downs] : cases) {
    Program program({"/src/a"});
    program.context.has_display = words != "shutdown without display";
    program.front_end.when_idle = [&, by_click = words == "shutdown"] {
      frmMain& main = *program.window;
      if (!main.PopUpWindow().visible()) return;
      EXPECT_EQ(
          main.PopUpWindow().lblMessage.text(),
          "\r\nThis computer will shut down in about 30 seconds.\r\nClick here to cancel the shutdown.");
      EXPECT_EQ(main.PopUpWindow().Timer1.interval(), 60s);
      EXPECT_EQ(program.shell.shut_downs, ShutDowns{called_off[0]});
      EXPECT_FALSE(main.cmdBackupAllFiles.reachable() || main.cmdSpecifyDirectory[0].reachable());
      by_click ? Click(main.PopUpWindow().lblMessage) : main.UserPressedEscape();
    };
    program.StartWithSetup(words);
    EXPECT_EQ(program.shell.shut_downs, shut_downs) << words;
    EXPECT_EQ(program.Said(), shut_downs == called_off ? "Shutdown cancelled" : "") << words;
    EXPECT_EQ(program.window->focused(), &program.window->cmdBackupModifiedFiles);
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
  std::string counted;
  bool start = false;
  InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& form) {
    for (const auto& row : form.fact_rows) {
      if (row->lblHeading.text() == "To be copied") counted = row->lblText.text();
    }
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
  Click(window->cmdBackupModifiedFiles);
  EXPECT_TRUE(window->SkipConfirmation);
  EXPECT_EQ(counted.substr(0, counted.find(',')) + " copied, 3 warnings.",
            window->ReportWindow().lblState.text().substr(sizeof "Finished:"));
}

TEST_F(Operations, TheTargetIsTheOneThatWasConfirmedAndIsLookedAtWithoutTheRunsOwnFiles) {
  setup.FileExtension = "none";
  StartWithSetup();
  InOpenWindow<frmConfirmOperation>([](frmConfirmOperation& form) { Click(form.cmdStart); });
  Click(window->cmdBackupModifiedFiles);
  EXPECT_TRUE(window->ReportWindow().visible());
  EXPECT_EQ(window->lblTargetFolderIsEmpty.text(), "The target folder is empty.");
  InOpenWindow<frmConfirmOperation>([this](frmConfirmOperation& form) {
    files.Remove("/dst");
    files.AddFolder("/dst");
    Click(form.cmdStart);
  });
  Click(window->cmdBackupModifiedFiles);
  EXPECT_EQ(Said(), Text(513));
}

TEST_F(Operations, ARefusalIsToldInABoxAndOpensNoReport) {
  StartWithSetup();
  window->SkipConfirmation = true;
  files.Remove("/dst");
  Click(window->cmdBackupAllFiles);
  EXPECT_EQ(Said(), "Target folder /dst does not exist.");
  EXPECT_FALSE(window->ReportWindow().visible());
}

TEST_F(Operations, CompareContentsOnceThatIsTickedAlsoWhereNothingIsStartedButNeverUnattended) {
  tree::Add(files, {"/dst/a=hullo"});
  StartWithSetup("nightly");
  EXPECT_EQ(printed.back(), "RESULT status=ok new=0 modified=0 copied=0 failed=0 bytes=0 seconds=0");
  bool ticks = true;
  InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& form) {
    if (ticks) Tick(form.chkCompareContents, true);
    EXPECT_TRUE(form.ComparesContents());
    Click(std::exchange(ticks, false) ? form.cmdCancel : form.cmdStart);
  });
  Click(window->cmdBackupModifiedFiles);
  const auto ends = [this](ui::Button& button) {
    Click(button);
    return window->ReportWindow().lblState.text();
  };
  EXPECT_EQ(ends(window->cmdCheckBackupState),
            "Finished: 1 file to be backed up, 1 file compared, 1 file with other content.");
  EXPECT_EQ(ends(window->cmdBackupModifiedFiles),
            "Finished: 1 file copied, 1 file compared, 1 file with other content.");
  EXPECT_NE(window->ReportWindow().txbText.text().find("whose contents were compared: 1\r\n"),
            std::string::npos);
  EXPECT_EQ(tree::Below(files, "/dst"), "a=hello");
  EXPECT_EQ(ends(window->cmdCheckBackupState), "Finished: 0 files to be backed up, 1 file compared.");
  EXPECT_NE(window->ReportWindow().txbText.text().find(
                "All files backed up.\r\nNumber of files whose contents were compared: 1\r\n"
                "Number of these with other content in the copy: 0\r\n"),
            std::string::npos);
}

TEST_F(Operations, ReadCopiesBackFromWhenThatIsTickedUntilTheProgramEnds) {
  tree::Add(files, {"/src/b=1"});
  StartWithSetup();
  files.Garble("/dst/b");
  bool ticks = true;
  InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& form) {
    if (std::exchange(ticks, false)) Tick(form.chkReadBack, true);
    Click(form.cmdStart);
  });
  const std::string end = "1 file copied, 1 file could not be copied, 2 files read back, 1 of them bad.";
  for (ui::Button* button : {&window->cmdBackupAllFiles, &window->cmdBackupAllFiles}) {
    Click(*button);
    EXPECT_EQ(window->ReportWindow().lblState.text(), "! Finished: " + end);
    EXPECT_NE(
        window->ReportWindow().txbText.text().find("Number of copies that were read back from the disk: 2\r\n"
                                                   "Number of these that were not as written: 1\r\n"),
        std::string::npos);
  }
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
