#include "app/main_window/frmMain.h"

#include "base/program_name.h"
#include "text/text_numbers.h"

namespace app {

frmMain::frmMain(Context& context)
    : Form(context.front_end, "frmMain", ui::FormStyle::kMain),
      setup_commands(context, *this),
      context_(context),
      operation_(context, *this),
      pop_up_(context.front_end) {
  SetText(base::kProgramName);
  SetCaptions();
  SetSpokenNamesAndKeys();
  ConnectHandlers();
  ConnectHints();
}

void frmMain::SetCaptions() {
  fraSource.SetText("What to back up");
  fraTarget.SetText("Where to");
  fraFiles.SetText("Which files");
  fraOptions.SetText("Options");
  cmdSpecifyDirectory[0].SetText("Source disk or folder");
  cmdSpecifyDirectory[1].SetText("Target disk or folder");
  for (ui::Button& button : cmdClearFolder) button.SetText("Clear");
  cmdCreateSubFolder.SetText("Create subfolder");
  cmdSelectSubfolders.SetText("Select included subfolders");
  cmdRemoveSubfolder.SetText("Remove");
  lblBackupOnlyExtension.SetText("Back up only files with extension");
  lblSkipFilepaths.SetText("Skip filepaths containing:");
  lblModifiedSince.SetText("Only files changed");
  chkExcludeFilesInSourceFolder.SetText("Exclude files in source folder");
  chkPauseAfterFirstCopy.SetText("Pause after first copy of files from a folder");
  chkSuppressDetailedReports.SetText("Suppress display of detailed report");
  chkSaveSetupOnQuit.SetText("On quit save setup for next run");
  cmdListSubFolders.SetText(OperationName(Operation::kListIncludedSubfolders));
  cmdCheckBackupState.SetText(OperationName(Operation::kCheckBackupState));
  cmdBackupAllFiles.SetText(OperationName(Operation::kBackupAllFiles));
  cmdBackupModifiedFiles.SetText(OperationName(Operation::kBackupModifiedFiles));
  cmdReportScreen.SetText("Display report screen");
  cmdSetup.SetText("Setup");
  cmdHelp.SetText("Help");
  cmdQuit.SetText("Quit");
  lblIntro.SetText("Specify the source folder ...");
  lblWarningReFilesInUse.SetText("Files being used by another program cannot be backed up.");
  for (ui::TextBox& box : txbDirectory) box.SetReadOnly(true);
  txbSetupFile.SetReadOnly(true);
  txbExcludedFilepaths.SetLineEndMark(",");  // pasted lines are patterns
}

void frmMain::SetSpokenNamesAndKeys() {
  txbDirectory[0].SetSpokenName("Source folder");
  txbDirectory[1].SetSpokenName("Target folder");
  cmdClearFolder[0].SetSpokenName("Clear source folder");
  cmdClearFolder[1].SetSpokenName("Clear target folder");
  cmdClearFolder[2].SetSpokenName("Clear patterns to skip");
  txbFileExtension.SetSpokenName("Back up only files with extension");
  txbExcludedFilepaths.SetSpokenName("Skip filepaths containing (separate with commas)");
  cboIncludedFolders.SetSpokenName("Included subfolders");
  cmdRemoveSubfolder.SetSpokenName("Remove the selected subfolder");
  cboModifiedSince.SetSpokenName("Only files changed");
  txbSetupFile.SetSpokenName("Setup file in use");
  fraMenu.SetSpokenName("Operations");

  const std::pair<ui::Control*, char> keys[] = {{&cmdSpecifyDirectory[0], 'S'},
                                                {&cmdSpecifyDirectory[1], 'T'},
                                                {&cmdCreateSubFolder, 'C'},
                                                {&cmdSelectSubfolders, 'i'},
                                                {&cmdRemoveSubfolder, 'v'},
                                                {&lblBackupOnlyExtension, 'x'},
                                                {&lblSkipFilepaths, 'f'},
                                                {&lblModifiedSince, 'y'},
                                                {&chkIncludeSubfolders, 'b'},
                                                {&chkPauseAfterFirstCopy, 'P'},
                                                {&chkExcludeFilesInSourceFolder, 'E'},
                                                {&chkSuppressDetailedReports, 'd'},
                                                {&chkSaveSetupOnQuit, 'O'},
                                                {&cmdListSubFolders, 'L'},
                                                {&cmdCheckBackupState, 'k'},
                                                {&cmdBackupAllFiles, 'a'},
                                                {&cmdBackupModifiedFiles, 'n'},
                                                {&cmdReportScreen, 'r'},
                                                {&cmdSetup, 'u'},
                                                {&cmdHelp, 'H'},
                                                {&cmdQuit, 'Q'}};
  for (const auto& [control, key] : keys) control->SetAccessKey(key);
}

void frmMain::ConnectHandlers() {
  on_close = [this] { Form_Unload(); };
  on_escape = [this] { pop_up_.lblMessage_MouseUp(); };
  for (std::size_t i = 0; i < 2; ++i) {
    cmdSpecifyDirectory[i].on_mouse_up = [this, i] { cmdSpecifyDirectory_MouseUp(i); };
  }
  cmdCreateSubFolder.on_mouse_up = [this] { cmdCreateSubFolder_MouseUp(); };
  cmdSelectSubfolders.on_mouse_up = [this] { cmdSelectSubfolders_MouseUp(); };
  cmdHelp.on_mouse_up = [this] { cmdHelp_MouseUp(); };
  cmdSetup.on_mouse_up = [this] { setup_commands.cmdSetup_MouseUp(); };
  cmdQuit.on_mouse_up = [this] { cmdQuit_MouseUp(); };
  cmdListSubFolders.on_mouse_up = [this] { cmdListSubFolders_MouseUp(); };
  cmdCheckBackupState.on_mouse_up = [this] { cmdCheckBackupState_MouseUp(); };
  cmdBackupAllFiles.on_mouse_up = [this] { cmdBackupAllFiles_MouseUp(); };
  cmdBackupModifiedFiles.on_mouse_up = [this] { cmdBackupModifiedFiles_MouseUp(); };
  cmdReportScreen.on_mouse_up = [this] { cmdReportScreen_MouseUp(); };
  for (int i = 0; i < 3; ++i) {
    cmdClearFolder[static_cast<std::size_t>(i)].on_mouse_up = [this, i] { cmdClearFolder_Click(i); };
  }
  cmdRemoveSubfolder.on_mouse_up = [this] { cmdRemoveSubfolder_Click(); };
  txbFileExtension.on_lost_focus = [this] { txbFileExtension_LostFocus(); };
  txbExcludedFilepaths.on_lost_focus = [this] { txbExcludedFilepaths_LostFocus(); };
  cboModifiedSince.on_click = [this] { cboModifiedSince_Click(); };
  for (ui::TextBox* box : {&txbFileExtension, &txbExcludedFilepaths})
    box->on_change = [this] { SetupEdited(); };
  for (ui::CheckBox* box : {&chkIncludeSubfolders, &chkExcludeFilesInSourceFolder, &chkPauseAfterFirstCopy,
                            &chkSuppressDetailedReports, &chkSaveSetupOnQuit}) {
    box->on_click = [this] { SetupEdited(); };
  }
  Clock.on_timer = [this] { Clock_Timer(); };
  Clock2.on_timer = [this] { Clock2_Timer(); };
}

void frmMain::ConnectHints() {
  const std::pair<ui::Button*, int> hints[] = {
      {&cmdSpecifyDirectory[0], text::kHintSource},
      {&cmdSpecifyDirectory[1], text::kHintTarget},
      {&cmdClearFolder[0], text::kHintClearSource},
      {&cmdClearFolder[1], text::kHintClearTarget},
      {&cmdClearFolder[2], text::kHintClearPatterns},
      {&cmdSelectSubfolders, text::kHintSelectSubfolders},
      {&cmdRemoveSubfolder, text::kHintRemoveSubfolder},
      {&cmdCreateSubFolder, text::kHintCreateSubfolder},
      {&cmdListSubFolders, text::kHintList},
      {&cmdCheckBackupState, text::kHintCheck},
      {&cmdBackupAllFiles, text::kHintBackupAll},
      {&cmdBackupModifiedFiles, text::kHintBackupModified},
      {&cmdReportScreen, text::kHintReport},
      {&cmdSetup, text::kHintSetup},
      {&cmdHelp, text::kHintHelp},
      {&cmdQuit, text::kHintQuit},
  };
  for (const auto& [button, number] : hints) hints_.Add(*button, Text(number));
  setup_commands.AddHints(hints_);
}

}  // namespace app
