#include <utility>

#include "report/frmReport.h"
#include "text/text_numbers.h"
#include "ui/front_end.h"

namespace report {
namespace {

constexpr const char* kPause = "Pause";
constexpr const char* kContinue = "Continue";
constexpr const char* kCancelOperation = "Cancel operation";
constexpr const char* kClose = "Close";
/// A click that comes so soon after "Cancel operation" belongs to that button, in whose place "Close" is.
constexpr std::chrono::milliseconds kSecondClick{1'000};
constexpr const char* kCountingNote = "Counting files ... ";

/// How long a held operation waits for the next event before it looks whether the program ends.
constexpr std::chrono::milliseconds kOneWait{200};

}  // namespace

void frmReport::SetCopyCaption(const std::string& caption) {
  constexpr ui::Twips kMargins = 400;
  cmdCopyToClipboard.SetText(caption);
  cmdCopyToClipboard.SetWidth(front_end().TextWidth(caption, cmdCopyToClipboard.font()) + kMargins);
  PositionReportButtons();
}

void frmReport::SetPauseCaption(const std::string& caption) {
  cmdPauseContinue.SetText(caption);
  cmdPauseContinue.SetAccessKey(caption == kContinue ? 'C' : 'P');
}

void frmReport::SetCancelCaption(const std::string& caption) {
  const bool cancels = caption == kCancelOperation;
  cmdCancelClose.SetText(caption);
  cmdCancelClose.SetAccessKey(cancels ? 'A' : 'L');
  cmdCancelClose.SetWidth(cancels ? 2'000 : 1'000);
  cmdCancelClose.SetLeft(txbText.bounds().right() - cmdCancelClose.width());
  // Escape closes a report but never cancels an operation.
  SetCancelButton(cancels ? nullptr : &cmdCancelClose);
}

void frmReport::SetReportButtons2(bool CopyVisible, bool PauseVisible, const std::string& PauseCaption,
                                  bool CancelVisible, const std::string& CancelCaption) {
  if (CopyVisible) SetCopyCaption("Copy to clipboard");
  cmdCopyToClipboard.SetVisible(CopyVisible);
  if (PauseVisible) SetPauseCaption(PauseCaption);
  cmdPauseContinue.SetVisible(PauseVisible);
  // In every pause: a report that was hidden in one must be able to come back in the next.
  chkSuppressDisplayOfReport.SetVisible(PauseVisible && PauseCaption == kContinue);
  if (CancelVisible) SetCancelCaption(CancelCaption);
  cmdCancelClose.SetVisible(CancelVisible);
  PositionReportButtons();
}

void frmReport::SetReportButtons(const std::string& caption) {
  ShowFileAtHand("");
  barProgress.SetVisible(false);
  SetTaskProgress(std::nullopt);
  txbText.SetVisible(true);
  SetReportButtons2(true, false, "", true, caption);
  EnterPhase(Phase::kEnded);
  Form_Resize();
  ShowText();
}

void frmReport::cmdPauseContinue_Click() {
  if (cmdPauseContinue.text() == kPause) {
    PauseOperation();
  } else {
    Paused = false;
    SetReportButtons2(false, true, kPause, false, "");
    EnterPhase(Phase::kRunning);
  }
}

void frmReport::PauseOperation() {
  SetReportButtons2(chkSuppressDisplayOfReport.value() == 0, true, kContinue, true, kCancelOperation);
  TakeBackCountingNote();
  main_.ShowLatest();
  EnterPhase(Phase::kPaused);
  ShowText();
  front_end().Notify(*this, title_, "Paused");
  Paused = true;
  while (Paused && !front_end().quitting()) front_end().WaitForEvents(kOneWait);
}

void frmReport::TakeBackCountingNote() {
  if (!txbText.text().ends_with(kCountingNote)) return;
  txbText.RemoveFromEnd(std::char_traits<char>::length(kCountingNote));
  line_.TakeBack(kCountingNote);
}

void frmReport::cmdCancelClose_Click() {
  if (cmdCancelClose.text() != kCancelOperation) {
    if (clock_.Monotonic() >= close_from_) CloseReport();
    return;
  }
  Paused = false;
  main_.RequestStop();
  SetCancelCaption(kClose);
  cmdPauseContinue.SetVisible(false);
  chkSuppressDisplayOfReport.SetVisible(false);
  EnterPhase(Phase::kStopping);
  close_from_ = clock_.Monotonic() + kSecondClick;
}

void frmReport::CloseReport() {
  Hide();
  // An operation that is being stopped enables them itself when it has ended.
  if (!main_.OperationRunning()) main_.EnableOperationControls();
}

void frmReport::cmdCopyToClipboard_Click() {
  if (!HoldsText()) return;
  const std::string selected = txbText.selected_text();
  front_end().clipboard().Clear();
  front_end().clipboard().SetText(selected.empty() ? txbText.text() : selected);
  SetCopyCaption(texts_.GetProgramText(text::kCopyAll));
  cmdCancelClose.SetFocus();
}

void frmReport::txbText_MouseUp() {
  if (!cmdCopyToClipboard.enabled()) return;
  const bool selected = txbText.selection().length > 0;
  SetCopyCaption(texts_.GetProgramText(selected ? text::kCopySelected : text::kCopyAll));
}

void frmReport::chkSuppressDisplayOfReport_Click() {
  const bool shown = chkSuppressDisplayOfReport.value() == 0;
  txbText.SetVisible(shown);
  cmdCopyToClipboard.SetVisible(shown);
  ShowProblemButton();
}

}  // namespace report
