#include "app/main_window/frmMain.h"
#include "base/utf8.h"
#include "platform/path.h"
#include "services/data_file.h"
#include "services/date_pr2.h"
#include "services/registry3.h"
#include "services/shutdown.h"
#include "text/text_numbers.h"
#include "ui/window_look.h"

/// Start-up, the two timers and the end of the program.
namespace app {

void frmMain::Form_Load() {
  FormLoaded = false;
  ui::SetControlsFontName(*this, ui::kWindowFont);
  InitialiseMainWindow();
  ArrangeMainWindow();
  lblPreviousRun.SetVisible(false);
  PlaceOnScreen();
  for (ui::Button* button : {&cmdReportScreen, &cmdSelectSubfolders, &cmdListSubFolders})
    button->SetEnabled(false);
  ui::SetControlsBackColor(*this, ui::kWindowColours);
  Show();
  context_.front_end.RunPendingEvents();
  if (context_.front_end.quitting()) return;
  FitWidth();
  ShowPreviousRun();
  lblWarningReFilesInUse.SetVisible(true);
  RecycleBinNames = {"", "RECYCLED", "RECYCLER", "$RECYCLE.BIN"};
  SetInitialFocus();
  Clock.Start(std::chrono::seconds{1});
  setup_commands.LoadLastRunSetup(false);
  RefreshTargetEmptyLabel();
  FormLoaded = true;
  if (!context_.command_line.empty()) RunUnattended();
}

void frmMain::InitialiseMainWindow() {
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&txbDirectory[0], &lblNumSubfolders, &txbExcludedFilepaths,
                                           &lblTargetFolderIsEmpty, &lblFreeSpace}) {
    control->SetText({});
  }
  lblIntro.SetText(Text(text::kIntroduction));
  lblIntro.SetVisible(true);
  chkIncludeSubfolders.SetVisible(false);
  context_.shell.EnterRootOfCurrentDrive();
  lblWarningReFilesInUse.SetText(
      "Some applications and system programs restrict access "
      "to files they are using. "
      "If possible, close any program which is using a file to be backed up "
      "before performing a backup operation.");
  lblWarningReFilesInUse.SetVisible(false);
  txbSetupFile.SetText({});
  txbSetupFile.SetVisible(false);
  LastRunSetupPath =
      services::GetDataFilePath(context_.shell, context_.files, "qvr.usr", Text(text::kDataFolderName));
  services::RemoveTemporaryFiles(context_.files, context_.clock, platform::ParentOf(LastRunSetupPath));
  std::vector<std::string> periods;
  for (int i = 0; i < DatePr2::ModifiedSinceCount(); ++i)
    periods.push_back(DatePr2::ModifiedSinceText(i, context_.texts));
  cboModifiedSince.SetItems(std::move(periods));
  ClearSetupControls();
}

void frmMain::ShowPreviousRun() {
  const std::string name = Text(text::kPreviousRun);
  const Registry3::Hive hive{context_.settings, [this](int code) { return context_.settings.Message(code); }};
  const std::string previous = Registry3::ExchangePreviousRun(hive, context_.clock, context_.locale,
                                                              Text(text::kPreviousRunKey), name);
  lblPreviousRun.SetText(previous.empty() ? std::string() : name + ": " + previous);
  lblPreviousRun.SetVisible(true);
}

void frmMain::SetInitialFocus() {
  if (!visible() || !fraMenu.enabled()) return;
  if (!platform::IsSpecified(txbDirectory[0].text())) {
    SetFocusIfPossible(cmdSpecifyDirectory[0]);
  } else if (!platform::IsSpecified(txbDirectory[1].text())) {
    SetFocusIfPossible(cmdSpecifyDirectory[1]);
  } else {
    SetFocusIfPossible(cmdBackupModifiedFiles);
  }
}

std::string frmMain::NoSetupText() const {
  return Text(text::kNoSetupYet) + " " + base::utf8::Printable(LastRunSetupPath) + " (" +
         context_.shell.UserName() + ")";
}

void frmMain::RunUnattended() {
  Show();
  RunningFromCommandLine = true;
  operation_.SetUnattendedHeading(DatePr2::TimeStamp(context_.clock, context_.locale));
  // A part of a setup may name another target: what was read of it is shown, not run, and not saved.
  if (const std::string& problem = setup_commands.last_run_problem(); !problem.empty()) {
    operation_.RefuseUnattended(engine::kSetupNotRead, problem);
  } else if (setup_commands.has_none_yet()) {
    operation_.RefuseUnattended(engine::kNoSetup, NoSetupText());
  } else {
    chkSaveSetupOnQuit.SetValue(1);
    cmdBackupModifiedFiles_MouseUp();
  }
  RunningFromCommandLine = false;
  // Ended by the user during the run: only now is it known what came of it.
  if (context_.front_end.quitting()) return EndProgram();
  if (base::utf8::ToLower(context_.command_line).find("shutdown") != std::string::npos)
    ShutDownAfterOperation();
}

/// An operation begun while a shutdown is pending would hold up the answer to a click on the pop-up until it
/// has ended, and a dialog would keep the click from the pop-up.
void frmMain::SetFramesEnabled(bool enabled) {
  for (ui::Frame* frame : {&fraSource, &fraTarget, &fraFiles, &fraMenu}) frame->SetEnabled(enabled);
}

/// Without a display nobody could click the pop-up, so there the shutdown cannot be called off.
void frmMain::ShutDownAfterOperation() {
  const auto pop_up = [this](const std::string& message, int pop_up_width, int pop_up_height,
                             std::chrono::milliseconds time) {
    const auto of = [](int twips) { return static_cast<std::int16_t>(twips); };
    pop_up_.PopUpInForm(*this, message, of(pop_up_width), of(pop_up_height),
                        static_cast<std::uint16_t>(time.count()), of(height() - pop_up_height - 300),
                        of((width() - pop_up_width) / 2));
    SetFramesEnabled(false);
    pop_up_.WaitUntilHidden();
    SetFramesEnabled(true);
    SetInitialFocus();
  };
  constexpr std::chrono::seconds kPopUpTime{60};
  services::ShutDownComputer({context_.shell, context_.front_end.dialogs(), *this, pop_up},
                             context_.has_display, kPopUpTime);
}

void frmMain::Clock_Timer() {
  cmdClearFolder[2].SetVisible(!txbExcludedFilepaths.text().empty());
  if (SetupJustSaved && ++clock_ticks_ > 10) SetupJustSaved = false;
  cmdReportScreen.SetEnabled(operation_.ReportHoldsText());
}

void frmMain::Clock2_Timer() {
  IgnoreMouseUp = false;
  Clock2.Stop();
}

void frmMain::cmdQuit_MouseUp() {
  if (IgnoreMouseUp) return;
  if (chkSaveSetupOnQuit.value() == 1 && !SetupJustSaved) {
    txbSetupFile.SetVisible(false);
    setup_commands.SaveForNextRunOrReport(true);
  }
  EndProgram();
}

void frmMain::Form_Unload() { EndProgram(); }

void frmMain::EndProgram() {
  operation_.EndWithProgram();
  if (help_) help_->Hide();
  pop_up_.Hide();
  hints_.Hide();
  Hide();
  context_.front_end.Quit(operation_.exit_code());
}

}  // namespace app
