#include "app/main_window/frmMain.h"
#include "base/utf8.h"
#include "services/date_pr2.h"
#include "services/setup_file.h"
#include "services/setup_text.h"
#include "text/text_numbers.h"

/// The Setup in the main window's controls, and the last-run setup.
namespace app {

Setup frmMain::CurrentSetup() const {
  Setup setup;
  setup.SourceFolder = txbDirectory[0].text();
  setup.TargetFolder = txbDirectory[1].text();
  setup.IncludedFolders = cboIncludedFolders.items();
  setup.IncludeSubfolders = chkIncludeSubfolders.value() == 1;
  setup.FileExtension = txbFileExtension.text();
  setup.SkipFilepaths = txbExcludedFilepaths.text();
  setup.ModifiedSince = cboModifiedSince.list_index();
  setup.ExcludeFilesInSourceFolder = chkExcludeFilesInSourceFolder.value() == 1;
  setup.PauseAfterFirstCopy = chkPauseAfterFirstCopy.value() == 1;
  setup.SuppressDetailedReports = chkSuppressDetailedReports.value() == 1;
  setup.SaveSetupOnQuit = chkSaveSetupOnQuit.value() == 1;
  return setup;
}

void frmMain::ShowSetup(const Setup& setup) {
  const std::string* const folders[] = {&setup.SourceFolder, &setup.TargetFolder};
  for (std::size_t i = 0; i < 2; ++i) {
    txbDirectory[i].SetText(*folders[i]);
    txbDirectory[i].SetToolTip(*folders[i]);
  }
  cboIncludedFolders.SetItems(setup.IncludedFolders);
  cboIncludedFolders.SetListIndex(setup.IncludedFolders.empty() ? -1 : 0);
  chkIncludeSubfolders.SetValue(setup.IncludeSubfolders ? 1 : 0);
  txbFileExtension.SetText(setup.FileExtension);
  txbExcludedFilepaths.SetText(setup.SkipFilepaths);
  txbExcludedFilepaths_LostFocus();
  cmdClearFolder[2].SetVisible(!setup.SkipFilepaths.empty());
  cboModifiedSince.SetListIndex(setup.ModifiedSince);
  chkExcludeFilesInSourceFolder.SetValue(setup.ExcludeFilesInSourceFolder ? 1 : 0);
  chkPauseAfterFirstCopy.SetValue(setup.PauseAfterFirstCopy ? 1 : 0);
  chkSuppressDetailedReports.SetValue(setup.SuppressDetailedReports ? 1 : 0);
  chkSaveSetupOnQuit.SetValue(setup.SaveSetupOnQuit ? 1 : 0);
}

void frmMain::ClearSetupControls() {
  ShowSetup(Setup{});
  fraSaveSetup.SetVisible(false);
  fraMenu.SetEnabled(true);
  RefreshSourceFolderDisplay();
  chkPauseAfterFirstCopy.SetEnabled(true);
  chkExcludeFilesInSourceFolder.SetVisible(false);
  chkIncludeSubfolders.SetVisible(false);
}

void frmMain::MarkSetupSaved() {
  SetupJustSaved = true;
  clock_ticks_ = 0;
}

services::LoadedSetup frmMain::LoadOperationFile(const std::string& path) {
  ClearSetupControls();
  services::LoadedSetup loaded = services::LoadOperationFile(
      {context_.files, context_.front_end.dialogs(), *this, context_.texts, FormLoaded}, path);
  ShowSetup(loaded.setup);
  away_ = loaded.away;
  extension_missing_ = loaded.extension_missing;
  if (loaded.clear_setup_file) ShowSetupFile({});
  return loaded;
}

bool frmMain::LoadLastRunSetup(bool show_message) {
  last_run_problem_.clear();
  std::string reason;
  const services::LastRunState state = last_run_.Stat(LastRunSetupPath, reason);
  bool loaded = false;
  no_setup_yet_ = state == services::LastRunState::kNone;
  if (state == services::LastRunState::kFile) {
    if (show_message) {
      context_.front_end.dialogs().Show(
          *this, {"Now loading setup from last run.", "Setup", ui::Icon::kInformation});
    }
    loaded = LoadLastRunFile();
  } else if (state == services::LastRunState::kNotReadable) {
    if (reason.empty()) reason = Text(text::kNotASetupFile);
    last_run_problem_ =
        Text(text::kSetupNotRead) + " " + base::utf8::Printable(LastRunSetupPath) + ". " + reason;
  }
  RefreshSourceFolderDisplay();
  RefreshTargetFolderDisplay();
  SnapshotSetup();
  ShowNote({});
  return loaded;
}

bool frmMain::LoadLastRunFile() {
  last_run_.NoteBeforeLoading(LastRunSetupPath);
  const services::LoadedSetup loaded = LoadOperationFile(LastRunSetupPath);
  if (loaded.problem.empty()) return true;
  last_run_.NoteReadInPart();
  last_run_problem_ =
      Text(text::kSetupNotRead) + " " + base::utf8::Printable(LastRunSetupPath) + ". " + loaded.problem;
  return false;
}

void frmMain::TakeBackWhatIsThere() {
  Setup setup = CurrentSetup();
  if (!services::TakeBackWhatIsThere(context_.files, setup, away_)) return;
  ShowSetup(setup);
  RefreshSourceFolderDisplay();
  RefreshTargetFolderDisplay();
  ShowNote({});
}

std::vector<std::string> frmMain::SetupWarnings() const {
  std::vector<std::string> lines = services::AwayLines(away_, context_.texts);
  if (extension_missing_) lines.push_back(Text(text::kExtensionMissing));
  return lines;
}

}  // namespace app
