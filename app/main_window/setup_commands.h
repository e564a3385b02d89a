#pragma once

#include <array>
#include <string>
#include <vector>

#include "app/context.h"
#include "app/data/setup.h"
#include "services/away_parts.h"
#include "services/last_run_file.h"
#include "services/setup_file.h"
#include "ui/controls.h"
#include "ui/dialogs.h"

namespace app {

class ButtonHints;
class frmMain;

/// Loading, saving, clearing and restoring the main window's Setup: the two frames with their commands, and
/// what is known of the setup that was loaded last. Everything else in the window is only used from here.
class SetupCommands {
 public:
  /// Both must outlive the object, whose controls belong to the window.
  SetupCommands(Context& context, frmMain& window);

  /// Gives the buttons their hints. Called once.
  void AddHints(ButtonHints& hints);

  // --- The frames
  void cmdSetup_MouseUp();
  void cmdLoadSetup_Click() { OpenSaveSetupFrame(true); }
  void cmdSaveSetup_Click() { OpenSaveSetupFrame(false); }
  void cmdClearSetup_Click();
  void cmdRestoreSetup_Click();
  void cmdKeepSetup_Click() { CloseSetupFrame(); }
  void cmdSaveSetupForNextRun_Click();
  void cmdSaveSetupAsOperationFile_Click();
  void cmdSaveSetupInBothWays_Click();
  void cmdDontSaveSetup_Click() { CloseSetupFrame(); }
  void CloseSetupFrame();

  // --- What they do
  /// What is saved: what the window shows, with the folders that are away for now.
  Setup SetupToSave() const;
  /// Loads the last-run setup where there is one; in any case refreshes the folder displays and takes the
  /// snapshot. Returns whether a setup was loaded whole.
  bool LoadLastRunSetup(bool show_message);
  /// Saves for the next run, after a question where that would destroy something. False when it is not saved;
  /// then the user knows.
  bool SaveForNextRunOrReport(bool show_pop_up);
  /// Keeps the Setup for "Restore setup".
  void SnapshotSetup();
  /// Shows the folders again that were away when the setup was loaded and are there by now.
  void TakeBackWhatIsThere();

  // --- What is known of the setup that was loaded
  /// A line for each folder that is away, and for what else is missing: for every report and the
  /// confirmation.
  std::vector<std::string> Warnings() const;
  /// What the main window says in place of its introduction; empty: there is nothing to say.
  std::string Note() const;
  /// Why the source, or with `target` the target, is not in the window although the setup names it; else
  /// empty.
  std::string WhyMissing(bool target) const { return services::WhyMissing(away_, target); }
  /// The folders that it names and that are not in the window because they are away. What the user chooses in
  /// their place is taken out here.
  services::AwayParts& away() { return away_; }
  /// Why the last-run setup is not, or not wholly, what the window shows: an unattended run is refused with
  /// it. Empty: it is.
  const std::string& last_run_problem() const { return last_run_problem_; }
  /// Whether nothing has been saved for the next run.
  bool has_none_yet() const { return has_none_yet_; }

  bool SetupLoadMode = false;  ///< fraSaveSetup's buttons load instead of save

 private:
  frmMain& main_;  // before the controls, which are made in it

 public:
  ui::Frame fraSetup;
  ui::Button cmdLoadSetup{&fraSetup, "cmdLoadSetup"};
  ui::Button cmdSaveSetup{&fraSetup, "cmdSaveSetup"};
  ui::Button cmdClearSetup{&fraSetup, "cmdClearSetup"};
  ui::Button cmdRestoreSetup{&fraSetup, "cmdRestoreSetup"};
  ui::Button cmdKeepSetup{&fraSetup, "cmdKeepSetup"};
  std::array<ui::Label, 5> lblSetupHint{
      ui::Label{&fraSetup, "lblSetupHint 0"}, ui::Label{&fraSetup, "lblSetupHint 1"},
      ui::Label{&fraSetup, "lblSetupHint 2"}, ui::Label{&fraSetup, "lblSetupHint 3"},
      ui::Label{&fraSetup, "lblSetupHint 4"}};
  ui::Frame fraSaveSetup;
  ui::Button cmdSaveSetupForNextRun{&fraSaveSetup, "cmdSaveSetupForNextRun"};
  ui::Button cmdSaveSetupAsOperationFile{&fraSaveSetup, "cmdSaveSetupAsOperationFile"};
  ui::Button cmdSaveSetupInBothWays{&fraSaveSetup, "cmdSaveSetupInBothWays"};
  ui::Button cmdDontSaveSetup{&fraSaveSetup, "cmdDontSaveSetup"};
  std::array<ui::Label, 4> lblSaveSetupHint{
      ui::Label{&fraSaveSetup, "lblSaveSetupHint 0"}, ui::Label{&fraSaveSetup, "lblSaveSetupHint 1"},
      ui::Label{&fraSaveSetup, "lblSaveSetupHint 2"}, ui::Label{&fraSaveSetup, "lblSaveSetupHint 3"}};

 private:
  std::string Text(int number) const { return context_.texts.GetProgramText(number); }
  void SetCaptionsAndKeys();
  void ConnectHandlers();
  void OpenFrame(ui::Frame& frame, ui::Button& cancel, ui::Button& first);
  void OpenSaveSetupFrame(bool load);

  services::LoadedSetup LoadOperationFile(const std::string& path);
  bool LoadLastRunFile();
  void LoadSetupFromFile();
  void SaveSetupInFile();
  /// Says what saving for the next run would destroy, and asks. True when there is nothing, or for Yes.
  bool ConfirmReplacingLastRun();
  void ShowSetupSaved();
  void ReportSetupFailure(const std::string& message);
  void ShowSetupFile(const std::string& path);
  std::string LastRunNotRead(const std::string& reason) const;
  ui::FileDialog SetupFileDialog(int title) const;

  Context& context_;
  Setup restore_snapshot_;
  services::AwayParts restore_away_;  ///< what was away at the snapshot
  services::AwayParts away_;          ///< of the setup that was loaded last
  services::LastRunFile last_run_;
  std::string last_run_problem_;
  bool has_none_yet_ = false;
  bool extension_missing_ = false;  ///< in the setup that was loaded last
};

}  // namespace app
