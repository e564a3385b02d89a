#include "app/main_window/frmMain.h"

#include <algorithm>

#include "text/text_numbers.h"

/// The hints of the main window's buttons: shown in a pop-up below the button once the pointer has rested on
/// it, and spoken by screen readers as the button's description.
namespace app {
namespace {

constexpr int kRest = 500;     ///< milliseconds that the pointer rests before the hint comes
constexpr int kShown = 6'000;  ///< milliseconds
constexpr ui::Twips kHeight = 640;
constexpr ui::Twips kDistance = 60;

}  // namespace

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
      {&cmdLoadSetup, text::kHintLoadSetup},
      {&cmdSaveSetup, text::kHintSaveSetup},
      {&cmdClearSetup, text::kHintClearSetup},
      {&cmdRestoreSetup, text::kHintRestoreSetup},
      {&cmdKeepSetup, text::kHintKeepSetup},
      {&cmdSaveSetupForNextRun, text::kHintNextRun},
      {&cmdSaveSetupAsOperationFile, text::kHintSetupFile},
      {&cmdSaveSetupInBothWays, text::kHintBothWays},
      {&cmdDontSaveSetup, text::kHintDontSave},
      {&cmdHelp, text::kHintHelp},
      {&cmdQuit, text::kHintQuit},
  };
  for (const auto& [button, number] : hints) {
    button->SetDescription(Text(number));
    button->on_mouse_move = [this, button = button] { Button_MouseMove(*button); };
    button->on_mouse_leave = [this] { Button_MouseLeave(); };
    // A press may open something over the button, which then never hears that the pointer has left it.
    button->on_mouse_up = [this, press = button->on_mouse_up] {
      Button_MouseLeave();
      press();
    };
  }
  HintDelay.on_timer = [this] { ShowHint(); };
}

void frmMain::Button_MouseMove(const ui::Button& button) {
  if (hinted_ == &button) return;
  hinted_ = &button;
  hint_.Hide();
  HintDelay.Start(kRest);
}

void frmMain::Button_MouseLeave() {
  hinted_ = nullptr;
  HintDelay.Stop();
  hint_.Hide();
}

/// Below the button, or above it where the window ends below; never over it.
void frmMain::ShowHint() {
  HintDelay.Stop();
  if (hinted_ == nullptr || !hinted_->reachable()) return;
  const std::string& text = hinted_->description();
  const ui::Twips text_width = context_.front_end.TextWidth(text, hint_.lblMessage.font());
  const ui::Twips wide = std::min(text_width + 300, ui::Twips{4'500});
  const ui::Rect button = PlaceInWindow(*hinted_);
  const bool fits_below = button.bottom() + kDistance + kHeight < inner().height;
  const ui::Twips hint_top = fits_below ? button.bottom() + kDistance : button.top - kDistance - kHeight;
  const ui::Twips hint_left = std::max(ui::Twips{0}, std::min(button.left, inner().width - wide));
  const ui::Twips border = (width() - inner().width) / 2;
  const ui::Twips title = height() - inner().height - border;
  hint_.PopUpInForm(*this, text, static_cast<std::int16_t>(wide), static_cast<std::int16_t>(kHeight), kShown,
                    static_cast<std::int16_t>(hint_top + title),
                    static_cast<std::int16_t>(hint_left + border));
}

ui::Rect frmMain::PlaceInWindow(const ui::Control& control) const {
  ui::Rect place = control.bounds();
  for (const ui::Control* around = control.parent(); around != this; around = around->parent()) {
    place.left += around->left();
    place.top += around->top();
  }
  return place;
}

}  // namespace app
