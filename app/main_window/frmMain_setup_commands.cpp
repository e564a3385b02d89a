#include "app/main_window/frmMain.h"
#include "base/utf8.h"
#include "platform/path.h"
#include "services/setup_file.h"
#include "services/setup_text.h"
#include "text/text_numbers.h"

/// The two frames of setup commands: load, save, clear, restore.
namespace app {
namespace {

/// The lower-cased part after the last "." of a path's name; empty when there is none.
std::string ExtensionOf(std::string_view path) {
  const std::string_view name = platform::NameOf(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string() : base::utf8::ToLower(name.substr(dot + 1));
}

}  // namespace

void frmMain::cmdSetup_MouseUp() {
  if (IgnoreMouseUp) return;
  for (ui::Control* control : std::initializer_list<ui::Control*>{
           &chkSaveSetupOnQuit, &txbSetupFile, &fraFiles, &fraOptions, &lblWarningReFilesInUse}) {
    control->SetVisible(false);
  }
  fraMenu.SetEnabled(false);
  fraSetup.SetTop(fraMenu.top() + cmdSetup.top() + 120);
  fraSetup.SetVisible(true);
  fraSetup.SetEnabled(true);
  SetCancelButton(&cmdKeepSetup);
  cmdSaveSetup.SetFocus();
}

void frmMain::CloseSetupFrame() {
  fraSetup.SetVisible(false);
  fraSaveSetup.SetVisible(false);
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&fraFiles, &fraOptions, &lblWarningReFilesInUse,
                                           &chkSuppressDetailedReports, &chkSaveSetupOnQuit}) {
    control->SetVisible(true);
  }
  txbSetupFile.SetVisible(!txbSetupFile.text().empty());
  fraMenu.SetEnabled(true);
  RefreshEnabledStates();
  SetCancelButton(nullptr);
  cmdSetup.SetFocus();
}

void frmMain::OpenSaveSetupFrame(bool load) {
  SetupLoadMode = load;
  struct Command {
    ui::Button& button;
    const char* caption;
    int hint;
  };
  const Command loading[] = {
      {cmdSaveSetupForNextRun, "Load setup from last run", text::kHintLoadLastRun},
      {cmdSaveSetupAsOperationFile, "Load setup from setup file", text::kHintLoadSetupFile},
      {cmdSaveSetupInBothWays, "Not now", text::kHintKeepSetup}};
  const Command saving[] = {{cmdSaveSetupForNextRun, "Save setup for next run", text::kHintNextRun},
                            {cmdSaveSetupAsOperationFile, "Save setup in setup file", text::kHintSetupFile},
                            {cmdSaveSetupInBothWays, "Save setup in both ways", text::kHintBothWays}};
  ui::Label* label = lblSaveSetupHint.data();
  for (const Command& command : load ? loading : saving) {
    command.button.SetText(command.caption);
    command.button.SetDescription(Text(command.hint));
    SetTextBeside(command.button, *label++, Text(command.hint));
  }
  cmdDontSaveSetup.SetVisible(!load);
  lblSaveSetupHint[3].SetVisible(!load);
  fraSetup.SetVisible(false);
  fraSaveSetup.SetTop(fraMenu.top() + cmdSetup.top() + 120);
  fraSaveSetup.SetVisible(true);
  SetCancelButton(load ? &cmdSaveSetupInBothWays : &cmdDontSaveSetup);  // "Not now"
  cmdSaveSetupForNextRun.SetFocus();
}

void frmMain::cmdLoadSetup_Click() { OpenSaveSetupFrame(true); }

void frmMain::cmdSaveSetup_Click() { OpenSaveSetupFrame(false); }

void frmMain::cmdSaveSetupForNextRun_Click() {
  const bool done = SetupLoadMode ? LoadLastRunSetup(false) : SaveForNextRunOrReport(true);
  CloseSetupFrame();
  if (done) MarkSetupSaved();
}

void frmMain::cmdSaveSetupAsOperationFile_Click() {
  fraSetup.SetVisible(false);
  if (SetupLoadMode) {
    LoadSetupFromFile();
  } else {
    SaveSetupInFile();
  }
  CloseSetupFrame();
}

void frmMain::cmdSaveSetupInBothWays_Click() {
  if (!SetupLoadMode && SaveForNextRunOrReport(false)) return cmdSaveSetupAsOperationFile_Click();
  CloseSetupFrame();
  cmdDontSaveSetup.SetVisible(true);
}

void frmMain::cmdDontSaveSetup_Click() { CloseSetupFrame(); }

void frmMain::cmdKeepSetup_Click() { CloseSetupFrame(); }

void frmMain::cmdClearSetup_Click() {
  ClearSetupControls();
  away_ = {};
  extension_missing_ = false;
  ShowSetupFile({});
  ShowNote({});
  SetupEdited();
  CloseSetupFrame();
  RefreshSourceFolderDisplay();
  RefreshTargetFolderDisplay();
  cmdSpecifyDirectory[0].SetFocus();
}

void frmMain::cmdRestoreSetup_Click() {
  ShowSetup(restore_snapshot_);
  away_ = restore_away_;
  ShowSetupFile({});
  ShowNote({});
  SetupEdited();
  CloseSetupFrame();
  RefreshSourceFolderDisplay();
  RefreshTargetFolderDisplay();
}

void frmMain::SnapshotSetup() {
  restore_snapshot_ = CurrentSetup();
  restore_away_ = away_;
}

ui::FileDialog frmMain::SetupFileDialog(int title) const {
  return {Text(title), Text(text::kSetupFiles) + " (*.qvr)", "*.qvr"};
}

void frmMain::ReportSetupFailure(const std::string& message) {
  context_.front_end.dialogs().Show(*this, {message, Text(text::kTitleSetupError), ui::Icon::kExclamation});
}

bool frmMain::ConfirmReplacingLastRun() {
  using Loss = services::LastRunFile::Loss;
  const Loss loss = last_run_.LossBySaving(LastRunSetupPath, SetupToSave());
  if (loss == Loss::kNone) return true;
  const int what = loss == Loss::kReadInPart ? text::kLastRunReadInPart : text::kLastRunChanged;
  return context_.front_end.dialogs().AskYesNo(
      *this, {Text(what) + "\r\n" + base::utf8::Printable(LastRunSetupPath) + "\r\n\r\n" +
                  Text(text::kReplaceLastRun),
              Text(text::kTitleReplaceLastRun), ui::Icon::kQuestion});
}

bool frmMain::SaveForNextRunOrReport(bool show_pop_up) {
  if (!ConfirmReplacingLastRun()) return false;
  if (!last_run_.Save(LastRunSetupPath, SetupToSave())) {
    ReportSetupFailure(Text(text::kSetupNotSaved));
    return false;
  }
  last_run_problem_.clear();
  ShowNote({});
  if (show_pop_up) ShowSetupSaved();
  return true;
}

void frmMain::ShowSetupSaved() {
  const auto of = [](int twips) { return static_cast<std::int16_t>(twips); };
  pop_up_.PopUpInForm(*this, "Setup saved", of(cmdSetup.width()), of(cmdSetup.height()), 2000,
                      of(fraMenu.top() + cmdSetup.top() + 500), of(fraMenu.left() + cmdSetup.left() + 160));
}

void frmMain::LoadSetupFromFile() {
  txbSetupFile.SetVisible(false);
  txbSetupFile.SetText({});
  const auto path = context_.front_end.dialogs().OpenFile(*this, SetupFileDialog(text::kOpenSetupTitle));
  // The button that ends a double click in the dialog is released over this window.
  IgnoreMouseUp = true;
  Clock2.Start(1000);
  if (!path || path->empty()) return;

  const services::LoadedSetup loaded = LoadOperationFile(*path);
  SetupEdited();
  if (loaded.result == services::kInputPastEnd) {
    ReportSetupFailure(Text(text::kSetupEndsEarly) + "\r\n" + base::utf8::Printable(*path) + "\r\n\r\n" +
                       Text(text::kSetupPartlyLoaded));
  } else if (loaded.result > 0) {
    ReportSetupFailure(Text(text::kSetupNotRead) + "\r\n" + base::utf8::Printable(*path));
  }
  RefreshSourceFolderDisplay();
  RefreshTargetFolderDisplay();
  ShowNote({});
  if (!txbDirectory[0].text().empty() || !txbDirectory[1].text().empty()) ShowSetupFile(*path);
}

void frmMain::SaveSetupInFile() {
  ui::Dialogs& dialogs = context_.front_end.dialogs();
  const auto path = dialogs.SaveFile(*this, SetupFileDialog(text::kSaveSetupTitle));
  if (!path || path->empty()) return;
  if (ExtensionOf(*path) != "qvr") {
    dialogs.Show(*this, {"Setup files must have extension 'qvr'.", cmdSaveSetupAsOperationFile.text(),
                         ui::Icon::kInformation});
    return;
  }
  if (context_.files.Stat(*path) &&
      !dialogs.AskYesNo(*this, {Text(text::kReplaceSetupFile) + " " + base::utf8::Printable(*path) + "?",
                                Text(text::kTitleSetupFileThere), ui::Icon::kQuestion})) {
    return;
  }
  if (services::SaveSetupToFile(context_.files, *path, SetupToSave())) {
    ShowSetupSaved();
    return ShowSetupFile(*path);
  }
  ReportSetupFailure(Text(text::kSetupFileNotSaved) + " " + base::utf8::Printable(*path) + ".");
  ShowSetupFile({});
}

void frmMain::ShowSetupFile(const std::string& path) {
  txbSetupFile.SetText(base::utf8::Printable(path));
  txbSetupFile.SetToolTip(base::utf8::Printable(path));
  txbSetupFile.SetVisible(!path.empty());
}

}  // namespace app
