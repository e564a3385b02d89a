#include "app/confirmation/frmConfirmOperation.h"
#include "app/select_subfolders/frmSelectSubfolders.h"
#include "tests/app/program.h"

/// One person's way through all the windows, and all that stands in them on the way.
namespace app::test {

using namespace ui::headless;
using platform::ErrorKind;
using platform::memory::Call;

struct ADay : testing::Test, Program {
  ADay()
      : Program({"/src/Letters/2019/aunt.txt=Dear aunt", "/src/Letters/bank.txt=Dear Sirs",
                 "/src/Letters/b.doc", "/src/Photos/cat.txt=a cat", "/src/Photos/dog.txt=a dog",
                 "/src/Photos/.thumbs/cat.txt", "/src/Empty/", "/src/todo.txt=shop",
                 "/src/huge.txt=" + std::string(2'000'000, 'h'), "/src/old.txt=old", "/src/locked.txt",
                 "/src/gone.txt>/nowhere", "/dst/Letters/bank.txt=Dear Sirs", "/dst/Photos/cat.txt=a kitten",
                 "/opt/program/qvr_help.txt=Help is here.\nAnd here."}) {
    front_end.screen_size = {28'800, 16'200};  // 1920 by 1080 pixels; the other stories have the smallest
    files.AddMountPoint("/dst");
    files.SetSpace(3'000'000, 8'000'000);
    for (const char* path : {"/src/todo.txt", "/src/Letters/2019/aunt.txt", "/src/Photos/cat.txt",
                             "/src/Photos/dog.txt", "/src/locked.txt"})
      files.AddFile(path, files.ContentOf(path), {1'699'990'000, 0});
    files.AddFile("/src/huge.txt", files.ContentOf("/src/huge.txt"), {1'699'000'000, 0});
    files.Fail(Call::kReadSource, "/src/locked.txt", {ErrorKind::kInUse, 32, "In use"});
  }

  void Note(const std::string& when, ui::Form& form) { story.Note(when, form, Heard()); }
  void NoteAll(const std::string& when, ui::Form& form) {
    Note(when, form);
    story.told += Spoken(form);
  }

  Story story{"app/a_day.txt"};
};

TEST_F(ADay, LooksAndSoundsAsItIsMeantTo) {
  frmMain& main = Start();
  report::frmReport& report = main.ReportWindow();
  NoteAll("The first start", main);
  dialogs.texts = {"/src"};
  Click(main.cmdSpecifyDirectory[0]);
  dialogs.texts = {"/dst"};
  Click(main.cmdSpecifyDirectory[1]);
  Note("Folders chosen", main);

  InOpenWindow<frmSelectSubfolders>([&](frmSelectSubfolders& select) {
    for (const std::size_t row : {1U, 2U}) Tick(select.rows[row]->chkSubfolder, true);
    NoteAll("Subfolders", select);
    Click(select.cmdAccept);
  });
  Click(main.cmdSelectSubfolders);
  front_end.when_idle = {};
  Tick(main.chkIncludeSubfolders, true);
  Tick(main.chkPauseAfterFirstCopy, true);
  Type(main.txbFileExtension, "t?t");
  Type(main.txbExcludedFilepaths, "/.thumbs/, aunt");
  Select(main.cboModifiedSince, 1);
  front_end.PassTime(1'000ms);
  Note("Everything chosen", main);

  Click(main.cmdListSubFolders);
  Note("Listed", report);
  Click(main.cmdCheckBackupState);
  Note("Checked", report);

  InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& confirm) {
    NoteAll("Confirmation", confirm);
    Tick(confirm.chkDontShowAgain, true);
    front_end.when_idle = [&] {
      if (!report.Paused) return;
      NoteAll("Paused", report);
      Click(report.cmdPauseContinue);
    };
    Click(confirm.cmdStart);
  });
  int copies = 0;
  WhenACopyBegins([&] {
    clock.Advance(std::chrono::seconds{20});
    if (++copies % 3 == 1) Note("Running", report);
    if (copies == 1) Note("Running", main);
  });
  Click(main.cmdBackupModifiedFiles);
  front_end.when_idle = {};
  Note("Backed up", report);
  Click(report.cmdOpenTarget);
  report.UserClosed();
  front_end.PassTime(1'000ms);
  Click(main.cmdReportScreen);
  Note("Shown again", report);
  report.UserClosed();
  Tick(main.chkPauseAfterFirstCopy, false);
  Click(main.cmdBackupAllFiles);
  Note("All backed up", report);
  Note("After it", main);
  WhenACopyBegins([&] { main.StopOperation(); });
  Click(main.cmdBackupAllFiles);
  Note("Cancelled", report);

  Click(main.cmdSetup);
  Note("Setup", main);
  Click(main.setup_commands.cmdSaveSetup);
  Note("Save setup", main);
  dialogs.texts = {"/mine.qvr"};
  Click(main.setup_commands.cmdSaveSetupAsOperationFile);
  Note("Saved", main);
  Note("Told", main.PopUpWindow());
  front_end.PassTime(1'000ms);
  frmView help(context);
  EXPECT_TRUE(help.ShowFile("Help", "/opt/program/qvr_help.txt", "", main));
  NoteAll("Help", help);
  Click(main.cmdQuit);
  EXPECT_TRUE(front_end.quitting());
}

}  // namespace app::test
