#include <initializer_list>
#include <utility>

#include "app/main_window/frmMain.h"
#include "app/main_window/setup_commands.h"
#include "text/text_numbers.h"

/// The two frames of setup commands, which open in the place of the filters and options.
namespace app {

SetupCommands::SetupCommands(Context& context, frmMain& window)
    : main_(window),
      fraSetup(&window, "fraSetup"),
      fraSaveSetup(&window, "fraSaveSetup"),
      context_(context),
      last_run_(context.files) {
  SetCaptionsAndKeys();
  ConnectHandlers();
}

void SetupCommands::SetCaptionsAndKeys() {
  fraSetup.SetText("Setup");
  fraSaveSetup.SetText("Setup");
  const struct {
    ui::Button& button;
    const char* caption;
    char key;
  } buttons[] = {{cmdLoadSetup, "Load setup", 'L'},
                 {cmdSaveSetup, "Save setup", 'S'},
                 {cmdClearSetup, "Clear setup", 'C'},
                 {cmdRestoreSetup, "Restore setup", 'R'},
                 {cmdKeepSetup, "Not now", 'N'},
                 {cmdSaveSetupForNextRun, "Save setup for next run", 'n'},
                 {cmdSaveSetupAsOperationFile, "Save setup in setup file", 'f'},
                 {cmdSaveSetupInBothWays, "Save setup in both ways", 'b'},
                 {cmdDontSaveSetup, "Not now", 'w'}};
  for (const auto& [button, caption, key] : buttons) {
    button.SetText(caption);
    button.SetAccessKey(key);
  }
}

void SetupCommands::ConnectHandlers() {
  cmdLoadSetup.on_mouse_up = [this] { cmdLoadSetup_Click(); };
  cmdSaveSetup.on_mouse_up = [this] { cmdSaveSetup_Click(); };
  cmdClearSetup.on_mouse_up = [this] { cmdClearSetup_Click(); };
  cmdRestoreSetup.on_mouse_up = [this] { cmdRestoreSetup_Click(); };
  cmdKeepSetup.on_mouse_up = [this] { cmdKeepSetup_Click(); };
  cmdSaveSetupForNextRun.on_mouse_up = [this] { cmdSaveSetupForNextRun_Click(); };
  cmdSaveSetupAsOperationFile.on_mouse_up = [this] { cmdSaveSetupAsOperationFile_Click(); };
  cmdSaveSetupInBothWays.on_mouse_up = [this] { cmdSaveSetupInBothWays_Click(); };
  cmdDontSaveSetup.on_mouse_up = [this] { cmdDontSaveSetup_Click(); };
}

void SetupCommands::AddHints(ButtonHints& hints) {
  const std::pair<ui::Button*, int> texts[] = {{&cmdLoadSetup, text::kHintLoadSetup},
                                               {&cmdSaveSetup, text::kHintSaveSetup},
                                               {&cmdClearSetup, text::kHintClearSetup},
                                               {&cmdRestoreSetup, text::kHintRestoreSetup},
                                               {&cmdKeepSetup, text::kHintKeepSetup},
                                               {&cmdSaveSetupForNextRun, text::kHintNextRun},
                                               {&cmdSaveSetupAsOperationFile, text::kHintSetupFile},
                                               {&cmdSaveSetupInBothWays, text::kHintBothWays},
                                               {&cmdDontSaveSetup, text::kHintDontSave}};
  for (const auto& [button, number] : texts) hints.Add(*button, Text(number));
}

void SetupCommands::OpenFrame(ui::Frame& frame, ui::Button& cancel, ui::Button& first) {
  frame.SetTop(main_.fraMenu.top() + main_.cmdSetup.top() + 120);
  frame.SetVisible(true);
  main_.SetCancelButton(&cancel);
  first.SetFocus();
}

void SetupCommands::cmdSetup_MouseUp() {
  if (main_.IgnoreMouseUp) return;
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&main_.chkSaveSetupOnQuit, &main_.txbSetupFile, &main_.fraFiles,
                                           &main_.fraOptions, &main_.lblWarningReFilesInUse}) {
    control->SetVisible(false);
  }
  main_.fraMenu.SetEnabled(false);
  fraSetup.SetEnabled(true);
  OpenFrame(fraSetup, cmdKeepSetup, cmdSaveSetup);
}

void SetupCommands::CloseSetupFrame() {
  fraSetup.SetVisible(false);
  fraSaveSetup.SetVisible(false);
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&main_.fraFiles, &main_.fraOptions, &main_.lblWarningReFilesInUse,
                                           &main_.chkSuppressDetailedReports, &main_.chkSaveSetupOnQuit}) {
    control->SetVisible(true);
  }
  main_.txbSetupFile.SetVisible(!main_.txbSetupFile.text().empty());
  main_.fraMenu.SetEnabled(true);
  main_.RefreshEnabledStates();
  main_.SetCancelButton(nullptr);
  main_.cmdSetup.SetFocus();
}

void SetupCommands::OpenSaveSetupFrame(bool load) {
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
    main_.SetTextBeside(command.button, *label++, Text(command.hint));
  }
  cmdDontSaveSetup.SetVisible(!load);
  lblSaveSetupHint[3].SetVisible(!load);
  fraSetup.SetVisible(false);
  OpenFrame(fraSaveSetup, load ? cmdSaveSetupInBothWays : cmdDontSaveSetup, cmdSaveSetupForNextRun);
}

}  // namespace app
