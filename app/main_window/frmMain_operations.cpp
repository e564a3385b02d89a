#include "app/main_window/frmMain.h"
#include "platform/path.h"
#include "text/built_in.h"
#include "text/text_numbers.h"

/// Starting an operation, and what the main window does meanwhile.
namespace app {

void frmMain::StartOperation(Operation operation) {
  if (operation_.OperationRunning()) return;
  CurrentOperation = operation;
  setup_commands.TakeBackWhatIsThere();
  operation_.Run();
}

void frmMain::cmdReportScreen_MouseUp() { operation_.ShowReport(); }

void frmMain::cmdHelp_MouseUp() {
  if (!help_) help_ = std::make_unique<frmView>(context_);
  help_->ShowFile(Text(text::kHelpTitle), platform::JoinPath(context_.shell.ProgramFolder(), "qvr_help.txt"),
                  text::EnglishHelp(), *this);
}

void frmMain::ShowNote(const std::string& note) {
  std::string shown = note;
  if (shown.empty()) shown = setup_commands.Note();
  lblIntro.SetText(shown.empty() ? Text(text::kIntroduction) : shown);
  lblIntro.SetToolTip(note.empty() ? shown : std::string());  // it may not fit
  lblIntro.Repaint();
}

/// Everything but Quit is disabled during a run; the pause may still be chosen while its effect can be seen.
void frmMain::LockControls() {
  ForEach([this](ui::Control& control) {
    const bool stays =
        &control == &cmdQuit || (dynamic_cast<ui::Container*>(&control) != nullptr && &control != &fraMenu);
    if (stays || !control.enabled()) return;
    control.SetEnabled(false);
    locked_.push_back(&control);
  });
  chkPauseAfterFirstCopy.SetEnabled(chkSuppressDetailedReports.value() == 0);
}

void frmMain::UnlockControls() {
  for (ui::Control* control : locked_) control->SetEnabled(true);
  locked_.clear();
  chkPauseAfterFirstCopy.SetEnabled(true);
}

}  // namespace app
