#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "app/context.h"
#include "app/data/operation.h"
#include "app/data/setup.h"
#include "app/main_window/button_hints.h"
#include "app/main_window/operation_controller.h"
#include "app/main_window/setup_commands.h"
#include "app/viewer/frmView.h"
#include "report/frmPopUp.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/text_box.h"

namespace app {

/// The main window. Holds the one Setup in its controls and starts everything the program does. Its member
/// functions are written in files by topic: frmMain.cpp (the controls), layout, start_up, setup_fields,
/// folders, folder_choice, subfolders, filter_fields, operations. SetupCommands and OperationController do
/// the rest.
class frmMain : public ui::Form {
 public:
  explicit frmMain(Context& context);

  // --- Start-up and end
  /// The whole start-up, in the end with the unattended run that a command line asks for. Called once.
  void Form_Load();
  /// The window's own close: ends the program at once, without saving.
  void Form_Unload();
  void cmdQuit_MouseUp();
  void Clock_Timer();
  void Clock2_Timer();
  /// Gives the focus to what the user needs next: a folder that is not specified yet, else the backup.
  void SetInitialFocus();
  /// Gives a button the focus if it is visible and enabled. Returns whether it did.
  static bool SetFocusIfPossible(ui::Button& button) { return button.SetFocus(); }

  // --- The Setup
  /// What the controls say now.
  Setup CurrentSetup() const;
  /// Puts every control to what the setup says, and refreshes what depends on it.
  void ShowSetup(const Setup& setup);
  void ClearSetupControls();
  /// The user has changed the setup: it is to be saved again.
  void SetupEdited() { SetupJustSaved = false; }
  /// Sets SetupJustSaved and starts its time over.
  void MarkSetupSaved();

  // --- Folders
  void cmdSpecifyDirectory_MouseUp(std::size_t index);
  void cmdCreateSubFolder_MouseUp();
  void RefreshFolderDisplays();
  void RefreshSourceFolderDisplay();
  void RefreshTargetFolderDisplay();
  void RefreshTargetEmptyLabel();
  void RefreshFreeSpaceLabel();
  void cmdClearFolder_Click(int index);
  void cmdSelectSubfolders_MouseUp();
  void cmdRemoveSubfolder_Click();

  // --- Filters
  void txbFileExtension_LostFocus();
  void txbExcludedFilepaths_LostFocus();
  void cboModifiedSince_Click();

  // --- Operations
  void cmdListSubFolders_MouseUp() { StartOperation(Operation::kListIncludedSubfolders); }
  void cmdCheckBackupState_MouseUp() { StartOperation(Operation::kCheckBackupState); }
  void cmdBackupAllFiles_MouseUp() { StartOperation(Operation::kBackupAllFiles); }
  void cmdBackupModifiedFiles_MouseUp() { StartOperation(Operation::kBackupModifiedFiles); }
  void cmdReportScreen_MouseUp();
  void cmdHelp_MouseUp();
  /// Shows what is going on in place of the introduction; empty: the introduction again, or what the user
  /// has to know of the setup that was loaded.
  void ShowNote(const std::string& note);
  /// Shows or disables what only makes sense with something else: Clear buttons, commands.
  void RefreshEnabledStates();
  /// Puts a text into the label beside a control, where it may take two lines.
  void SetTextBeside(const ui::Control& control, ui::Label& label, std::string text);
  void LockControls();
  void UnlockControls();
  report::frmReport& ReportWindow() { return operation_.ReportWindow(); }
  report::frmPopUp& PopUpWindow() { return pop_up_; }
  report::frmPopUp& HintWindow() { return hints_.PopUpWindow(); }
  /// Asks a running operation to stop, as "Cancel operation" does.
  void StopOperation() { operation_.RequestStop(); }

  // --- State
  std::array<std::string, 4> RecycleBinNames;
  std::string LastRunSetupPath;
  bool FormLoaded = false;
  bool RunningFromCommandLine = false;
  bool IgnoreMouseUp = false;
  bool SetupJustSaved = false;
  bool SkipConfirmation = false;  ///< "Do not show this again while the program runs"
  bool CompareContents = false;   ///< as ticked when the confirmation was last closed
  bool ReadBack = false;          ///< likewise
  /// The picture caches of file managers are not backed up; no control sets it.
  bool SkipPictureCaches = false;
  bool AnyIncludedFolderHasSubfolders = false;
  Operation CurrentOperation = Operation::kCheckBackupState;

  // --- Controls, in tab order: what, to where, which files, how, do it
  ui::Label lblIntro{this, "lblIntro"};
  ui::Frame fraSource{this, "fraSource"};
  ui::Frame fraTarget{this, "fraTarget"};
  ui::Frame fraFiles{this, "fraFiles"};
  ui::Frame fraOptions{this, "fraOptions"};
  std::array<ui::Button, 2> cmdSpecifyDirectory{ui::Button{&fraSource, "cmdSpecifyDirectory 0"},
                                                ui::Button{&fraTarget, "cmdSpecifyDirectory 1"}};
  std::array<ui::TextBox, 2> txbDirectory{ui::TextBox{&fraSource, "txbDirectory 0"},
                                          ui::TextBox{&fraTarget, "txbDirectory 1"}};
  ui::Label lblBackupOnlyExtension{&fraFiles, "lblBackupOnlyExtension"};
  ui::TextBox txbFileExtension{&fraFiles, "txbFileExtension"};
  ui::Label lblSkipFilepaths{&fraFiles, "lblSkipFilepaths"};
  ui::TextBox txbExcludedFilepaths{&fraFiles, "txbExcludedFilepaths"};
  std::array<ui::Button, 3> cmdClearFolder{ui::Button{&fraSource, "cmdClearFolder 0"},
                                           ui::Button{&fraTarget, "cmdClearFolder 1"},
                                           ui::Button{&fraFiles, "cmdClearFolder 2"}};
  ui::Button cmdSelectSubfolders{&fraSource, "cmdSelectSubfolders"};
  ui::Label lblNumSubfolders{&fraSource, "lblNumSubfolders"};
  ui::DropDownList cboIncludedFolders{&fraSource, "cboIncludedFolders"};
  ui::Button cmdRemoveSubfolder{&fraSource, "cmdRemoveSubfolder"};
  ui::CheckBox chkExcludeFilesInSourceFolder{&fraSource, "chkExcludeFilesInSourceFolder"};
  ui::CheckBox chkIncludeSubfolders{&fraSource, "chkIncludeSubfolders"};
  ui::Button cmdCreateSubFolder{&fraTarget, "cmdCreateSubFolder"};
  ui::Label lblFreeSpace{&fraTarget, "lblFreeSpace"};
  ui::Label lblTargetFolderIsEmpty{&fraTarget, "lblTargetFolderIsEmpty"};
  ui::Label lblModifiedSince{&fraFiles, "lblModifiedSince"};
  ui::DropDownList cboModifiedSince{&fraFiles, "cboModifiedSince"};
  ui::CheckBox chkPauseAfterFirstCopy{&fraOptions, "chkPauseAfterFirstCopy"};
  ui::CheckBox chkSuppressDetailedReports{&fraOptions, "chkSuppressDetailedReports"};
  ui::Label lblWarningReFilesInUse{this, "lblWarningReFilesInUse"};
  ui::Frame fraMenu{this, "fraMenu"};
  ui::Button cmdListSubFolders{&fraMenu, "cmdListSubFolders"};
  ui::Button cmdCheckBackupState{&fraMenu, "cmdCheckBackupState"};
  ui::Button cmdBackupAllFiles{&fraMenu, "cmdBackupAllFiles"};
  ui::Button cmdBackupModifiedFiles{&fraMenu, "cmdBackupModifiedFiles"};
  ui::Button cmdReportScreen{&fraMenu, "cmdReportScreen"};
  ui::Button cmdSetup{&fraMenu, "cmdSetup"};
  ui::TextBox txbSetupFile{&fraMenu, "txbSetupFile"};
  ui::Label lblPreviousRun{this, "lblPreviousRun"};
  ui::CheckBox chkSaveSetupOnQuit{this, "chkSaveSetupOnQuit"};
  ui::Button cmdHelp{this, "cmdHelp"};
  ui::Button cmdQuit{this, "cmdQuit"};
  SetupCommands setup_commands;
  ui::Timer Clock{this, "Clock"};
  ui::Timer Clock2{this, "Clock2"};

 private:
  std::string Text(int number) const { return context_.texts.GetProgramText(number); }
  void SetCaptions();
  void SetSpokenNamesAndKeys();
  void ConnectHandlers();
  void ConnectHints();
  void InitialiseMainWindow();
  void ArrangeMainWindow();
  ui::Twips RowTop(int row) const;
  ui::Twips FrameHeight(int rows) const;
  void PlaceFrames();
  void PlaceSource();
  void PlaceTarget();
  void PlaceFilters();
  void PlaceMenu();
  void ArrangeSetupFrames();
  void FitWidth();
  void PlaceOnScreen();
  void ShowPreviousRun();
  void RunUnattended();
  std::string NoSetupText() const;
  void ShutDownAfterOperation();
  void SetFramesEnabled(bool enabled);
  void EndProgram();
  void StartOperation(Operation operation);
  bool IsInRecycleBin(const std::string& path) const;
  void ChooseFolder(std::size_t index);
  bool MayBeChosen(std::size_t index, const std::string& path);
  void TakeFolder(std::size_t index, const std::string& path);
  /// Says so when a saved setup cannot hold this path.
  void WarnAboutUnsavablePath(const std::string& path);
  void OfferOtherFolder(std::size_t index);
  void CreateSubfolder(const std::string& path);
  bool ReportNameFault(const std::string& name);
  void ReportFolderNotCreated(const std::string& path, const platform::Error& error);

  std::string SummaryOfSubfolders(const struct FolderContent& content) const;
  void ShowIncludedFolders(bool source_has_subfolders);

  Context& context_;
  OperationController operation_;
  report::frmPopUp pop_up_;
  std::unique_ptr<frmView> help_;
  ButtonHints hints_{*this};
  bool offering_other_folder_ = false;
  std::vector<ui::Control*> locked_;
  int clock_ticks_ = 0;
  const struct LayoutMeasures* measures_ = nullptr;
};

}  // namespace app
