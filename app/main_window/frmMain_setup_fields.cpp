#include "app/main_window/frmMain.h"

/// The Setup in the main window's controls.
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
  setup_commands.fraSaveSetup.SetVisible(false);
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

}  // namespace app
