#include "app/main_window/setup_commands.h"

#include "app/main_window/frmMain.h"
#include "base/utf8.h"
#include "platform/path.h"
#include "services/setup_file.h"
#include "services/setup_text.h"
#include "text/text_numbers.h"

/// Loading, saving, clearing and restoring.
namespace app {
namespace {

/// The lower-cased part after the last "." of a path's name; empty when there is none.
std::string ExtensionOf(std::string_view path) {
  const std::string_view name = platform::NameOf(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string() : base::utf8::ToLower(name.substr(dot + 1));
}

}  // namespace

void SetupCommands::cmdSaveSetupForNextRun_Click() {
  const bool done = SetupLoadMode ? LoadLastRunSetup(false) : SaveForNextRunOrReport(true);
  CloseSetupFrame();
  if (done) main_.MarkSetupSaved();
}

void SetupCommands::cmdSaveSetupAsOperationFile_Click() {
  fraSetup.SetVisible(false);
  if (SetupLoadMode) {
    LoadSetupFromFile();
  } else {
    SaveSetupInFile();
  }
  CloseSetupFrame();
}

void SetupCommands::cmdSaveSetupInBothWays_Click() {
  if (!SetupLoadMode && SaveForNextRunOrReport(false)) return cmdSaveSetupAsOperationFile_Click();
  CloseSetupFrame();
  cmdDontSaveSetup.SetVisible(true);
}

void SetupCommands::cmdClearSetup_Click() {
  main_.ClearSetupControls();
  away_ = {};
  extension_missing_ = false;
  ShowSetupFile({});
  main_.ShowNote({});
  main_.SetupEdited();
  CloseSetupFrame();
  main_.RefreshFolderDisplays();
  main_.cmdSpecifyDirectory[0].SetFocus();
}

void SetupCommands::cmdRestoreSetup_Click() {
  main_.ShowSetup(restore_snapshot_);
  away_ = restore_away_;
  ShowSetupFile({});
  main_.ShowNote({});
  main_.SetupEdited();
  CloseSetupFrame();
  main_.RefreshFolderDisplays();
}

Setup SetupCommands::SetupToSave() const { return services::WithAwayParts(main_.CurrentSetup(), away_); }

void SetupCommands::SnapshotSetup() {
  restore_snapshot_ = main_.CurrentSetup();
  restore_away_ = away_;
}

ui::FileDialog SetupCommands::SetupFileDialog(int title) const {
  return {Text(title), Text(text::kSetupFiles) + " (*.qvr)", "*.qvr"};
}

void SetupCommands::ReportSetupFailure(const std::string& message) {
  context_.front_end.dialogs().Show(main_, {message, Text(text::kTitleSetupError), ui::Icon::kExclamation});
}

bool SetupCommands::ConfirmReplacingLastRun() {
  using Loss = services::LastRunFile::Loss;
  const Loss loss = last_run_.LossBySaving(main_.LastRunSetupPath, SetupToSave());
  if (loss == Loss::kNone) return true;
  const int what = loss == Loss::kReadInPart ? text::kLastRunReadInPart : text::kLastRunChanged;
  return context_.front_end.dialogs().AskYesNo(
      main_, {Text(what) + "\r\n" + base::utf8::Printable(main_.LastRunSetupPath) + "\r\n\r\n" +
                  Text(text::kReplaceLastRun),
              Text(text::kTitleReplaceLastRun), ui::Icon::kQuestion, true});
}

bool SetupCommands::SaveForNextRunOrReport(bool show_pop_up) {
  if (!ConfirmReplacingLastRun()) return false;
  if (!last_run_.Save(main_.LastRunSetupPath, SetupToSave())) {
    ReportSetupFailure(Text(text::kSetupNotSaved));
    return false;
  }
  last_run_problem_.clear();
  main_.ShowNote({});
  if (show_pop_up) ShowSetupSaved();
  return true;
}

void SetupCommands::ShowSetupSaved() {
  const auto of = [](int twips) { return static_cast<std::int16_t>(twips); };
  main_.PopUpWindow().PopUpInForm(main_, "Setup saved", of(main_.cmdSetup.width()),
                                  of(main_.cmdSetup.height()), 2000,
                                  of(main_.fraMenu.top() + main_.cmdSetup.top() + 500),
                                  of(main_.fraMenu.left() + main_.cmdSetup.left() + 160));
}

void SetupCommands::LoadSetupFromFile() {
  main_.txbSetupFile.SetVisible(false);
  main_.txbSetupFile.SetText({});
  const auto path = context_.front_end.dialogs().OpenFile(main_, SetupFileDialog(text::kOpenSetupTitle));
  // The button that ends a double click in the dialog is released over this window.
  main_.IgnoreMouseUp = true;
  main_.Clock2.Start(std::chrono::seconds{1});
  if (!path || path->empty()) return;

  const services::LoadedSetup loaded = LoadOperationFile(*path);
  main_.SetupEdited();
  if (loaded.result == services::kInputPastEnd) {
    ReportSetupFailure(Text(text::kSetupEndsEarly) + "\r\n" + base::utf8::Printable(*path) + "\r\n\r\n" +
                       Text(text::kSetupPartlyLoaded));
  } else if (loaded.result > 0) {
    ReportSetupFailure(Text(text::kSetupNotRead) + "\r\n" + base::utf8::Printable(*path));
  }
  main_.RefreshFolderDisplays();
  main_.ShowNote({});
  if (!main_.txbDirectory[0].text().empty() || !main_.txbDirectory[1].text().empty()) ShowSetupFile(*path);
}

void SetupCommands::SaveSetupInFile() {
  ui::Dialogs& dialogs = context_.front_end.dialogs();
  const auto path = dialogs.SaveFile(main_, SetupFileDialog(text::kSaveSetupTitle));
  if (!path || path->empty()) return;
  if (ExtensionOf(*path) != "qvr") {
    dialogs.Show(main_, {"Setup files must have extension 'qvr'.", cmdSaveSetupAsOperationFile.text(),
                         ui::Icon::kInformation});
    return;
  }
  if (context_.files.Stat(*path) &&
      !dialogs.AskYesNo(main_, {Text(text::kReplaceSetupFile) + " " + base::utf8::Printable(*path) + "?",
                                Text(text::kTitleSetupFileThere), ui::Icon::kQuestion, true})) {
    return;
  }
  if (services::SaveSetupToFile(context_.files, *path, SetupToSave())) {
    ShowSetupSaved();
    return ShowSetupFile(*path);
  }
  ReportSetupFailure(Text(text::kSetupFileNotSaved) + " " + base::utf8::Printable(*path) + ".");
  ShowSetupFile({});
}

void SetupCommands::ShowSetupFile(const std::string& path) {
  main_.txbSetupFile.SetText(base::utf8::Printable(path));
  main_.txbSetupFile.SetToolTip(base::utf8::Printable(path));
  main_.txbSetupFile.SetVisible(!path.empty());
}

services::LoadedSetup SetupCommands::LoadOperationFile(const std::string& path) {
  main_.ClearSetupControls();
  services::LoadedSetup loaded = services::LoadOperationFile(
      {context_.files, context_.front_end.dialogs(), main_, context_.texts, main_.FormLoaded}, path);
  main_.ShowSetup(loaded.setup);
  away_ = loaded.away;
  extension_missing_ = loaded.extension_missing;
  if (loaded.clear_setup_file) ShowSetupFile({});
  return loaded;
}

bool SetupCommands::LoadLastRunSetup(bool show_message) {
  last_run_problem_.clear();
  std::string reason;
  const services::LastRunState state = last_run_.Stat(main_.LastRunSetupPath, reason);
  bool loaded = false;
  has_none_yet_ = state == services::LastRunState::kNone;
  if (state == services::LastRunState::kFile) {
    if (show_message) {
      context_.front_end.dialogs().Show(
          main_, {"Now loading setup from last run.", "Setup", ui::Icon::kInformation});
    }
    loaded = LoadLastRunFile();
  } else if (state == services::LastRunState::kNotReadable) {
    if (reason.empty()) reason = Text(text::kNotASetupFile);
    last_run_problem_ = LastRunNotRead(reason);
  }
  main_.RefreshFolderDisplays();
  SnapshotSetup();
  main_.ShowNote({});
  return loaded;
}

std::string SetupCommands::LastRunNotRead(const std::string& reason) const {
  return Text(text::kSetupNotRead) + " " + base::utf8::Printable(main_.LastRunSetupPath) + ". " + reason;
}

bool SetupCommands::LoadLastRunFile() {
  last_run_.NoteBeforeLoading(main_.LastRunSetupPath);
  const services::LoadedSetup loaded = LoadOperationFile(main_.LastRunSetupPath);
  if (loaded.problem.empty()) return true;
  last_run_.NoteReadInPart();
  last_run_problem_ = LastRunNotRead(loaded.problem);
  return false;
}

void SetupCommands::TakeBackWhatIsThere() {
  Setup setup = main_.CurrentSetup();
  if (!services::TakeBackWhatIsThere(context_.files, setup, away_)) return;
  main_.ShowSetup(setup);
  main_.RefreshFolderDisplays();
  main_.ShowNote({});
}

std::vector<std::string> SetupCommands::Warnings() const {
  std::vector<std::string> lines = services::AwayLines(away_, context_.texts);
  if (extension_missing_) lines.push_back(Text(text::kExtensionMissing));
  return lines;
}

std::string SetupCommands::Note() const {
  return last_run_problem_.empty() ? services::AwaySummary(away_, context_.texts) : last_run_problem_;
}

}  // namespace app
