#include "report/frmReport.h"

#include <array>

#include "text/text_numbers.h"
#include "ui/front_end.h"
#include "ui/placing.h"
#include "ui/window_look.h"

namespace report {
namespace {

constexpr const char* kCopying = "File now being copied: ";
constexpr const char* kComparing = "Now being compared: ";
constexpr const char* kReadingBack = "Now being read back: ";

}  // namespace

frmReport::frmReport(ui::FrontEnd& front_end, platform::Clock& clock, const text::ProgramTexts& texts,
                     MainWindow& main)
    : Form(front_end, "frmReport", ui::FormStyle::kReport), clock_(clock), texts_(texts), main_(main) {
  Form_Load();
}

void frmReport::Form_Load() {
  SetLooks();
  SetTextsAndKeys();
  SetHandlers();
  constexpr ui::Twips kStartHeight = 6'000;
  constexpr ui::Size kSmallest{10'200, 4'500};  // inside: all buttons side by side, some lines of text
  const ui::Rect& main = main_.Window().bounds();
  SetBounds(ui::KeptOnItsScreen({main.left + 500, main.top + 500, main.width - 1'000, kStartHeight},
                                front_end().screen()));
  SetSmallest(kSmallest);
  size_set_ = {width(), height()};
}

void frmReport::SetLooks() {
  ui::SetControlsFontName(*this, ui::kWindowFont);
  ui::SetControlsBackColor(*this, ui::kWindowColours);
  txbText.SetFont({ui::kReportFont, 9, false});
  txbText.SetColours(ui::kPaperColours);
  txbText.SetWraps();
  txbFind.SetColours(ui::kPaperColours);
  lblState.SetFont({ui::kWindowFont, 10, true});
}

void frmReport::SetTextsAndKeys() {
  cmdNextProblem.SetText("Next problem");
  cmdNextProblem.SetAccessKey('N');
  cmdNextProblem.SetDescription(
      "The next line about something that went wrong. F8, and back with Shift and F8.");
  cmdOpenTarget.SetText("Open target folder");
  cmdOpenTarget.SetAccessKey('O');
  lblFind.SetText("Find:");
  lblFind.SetAccessKey('F');
  txbFind.SetSpokenName("Find in the report");
  cmdFindNext.SetText("Find next");
  cmdFindNext.SetAccessKey('X');
  lblSourceCaption.SetText("Source: ");
  lblTargetCaption.SetText("Target: ");
  barProgress.SetSpokenName("Progress of the operation");
  txbText.SetReadOnly(true);
  txbText.SetSpokenName("Report");
  txbText.SetAccessKey('R');
  chkSuppressDisplayOfReport.SetText("Suppress display of report");
  chkSuppressDisplayOfReport.SetAccessKey('S');
  cmdCopyToClipboard.SetAccessKey('Y');
}

void frmReport::SetHandlers() {
  // The handler that pauses waits until the operation goes on, and the window may be closed again meanwhile.
  AllowReentry();
  on_close = [this] { Form_Unload(); };
  on_resize = [this] { Form_Resize(); };
  on_activate = [this] { Form_Activate(); };
  on_key = [this](const ui::KeyPress& press) { return KeyPressed(press); };
  on_escape = [this] { CloseFind(); };
  txbText.on_mouse_up = [this] { txbText_MouseUp(); };
  cmdNextProblem.on_mouse_up = [this] { cmdNextProblem_Click(); };
  cmdOpenTarget.on_mouse_up = [this] { cmdOpenTarget_Click(); };
  txbFind.on_change = [this] { txbFind_Change(); };
  cmdFindNext.on_mouse_up = [this] { cmdFindNext_Click(); };
  // Its handler waits until the same button is pressed again.
  cmdPauseContinue.AllowReentry();
  cmdPauseContinue.on_mouse_up = [this] { cmdPauseContinue_Click(); };
  cmdCancelClose.on_mouse_up = [this] { cmdCancelClose_Click(); };
  cmdCopyToClipboard.on_mouse_up = [this] { cmdCopyToClipboard_Click(); };
  chkSuppressDisplayOfReport.on_click = [this] { chkSuppressDisplayOfReport_Click(); };
}

void frmReport::BeginReport(ReportSubject subject) {
  subject_ = std::move(subject);
  line_.StartOver();
  txbText.SetText("");
  problems_.Clear();
  title_ = subject_.title;
  end_.clear();
  lblSourceDirpath.SetText(subject_.source_folder);
  lblSourceDirpath.SetToolTip(subject_.source_folder);
  lblTargetCaption.SetVisible(!subject_.target_folder.empty());
  lblTargetDirpath.SetText(subject_.target_folder);
  lblTargetDirpath.SetToolTip(subject_.target_folder);
  lblBytesCopied.SetText("");
  lblFreeSpace.SetText("");
  ShowFileAtHand("");
  barProgress.SetVisible(true);
  ShowProgress(0);
  CloseFind();
  EnterPhase(Phase::kRunning);
  chkSuppressDisplayOfReport.SetValue(0);
  SetReportButtons2(false, true, "Pause", false, "");
  cmdCancelClose.SetDescription({});
  Show();
  Form_Resize();  // only a window that has been shown knows its inner size
  // Not the button: the key that started the operation may be pressed twice.
  txbText.SetFocus();
}

void frmReport::cmdOpenTarget_Click() { main_.OpenTargetFolder(); }

void frmReport::EnterPhase(Phase phase) {
  phase_ = phase;
  ShowState();
  ShowProblemButton();
  cmdOpenTarget.SetVisible(phase == Phase::kEnded && subject_.copies_files && lblTargetCaption.visible());
  if (phase != Phase::kEnded) {
    SetTaskProgress(barProgress.fraction(),
                    phase == Phase::kPaused ? ui::TaskState::kPaused : ui::TaskState::kRunning);
  }
}

void frmReport::ShowState() {
  const std::string percent = std::to_string(static_cast<int>(barProgress.fraction() * 100)) + " %";
  const std::array<std::string, 5> states{percent, "Waiting", "Paused", "Being cancelled", end_};
  const std::string& state = states[static_cast<std::size_t>(phase_)];
  lblState.SetText(phase_ == Phase::kPaused ? state + ": " + percent : state);
  lblState.SetToolTip(end_);
  lblState.SetColours(phase_ == Phase::kPaused ? ui::kNoteColours : ui::kWindowColours);
  std::string in_title = state.substr(0, state.find(':'));
  if (phase_ == Phase::kRunning && !time_left_.empty()) in_title += ", " + time_left_;
  SetText(in_title.empty() ? title_ : in_title + " - " + title_);
}

void frmReport::ShowEnd(const std::string& title, const std::string& text, EndKind kind) {
  title_ = title;
  end_ = kind == EndKind::kBad ? "! " + text : text;
  EnterPhase(Phase::kEnded);
  if (kind == EndKind::kBad) lblState.SetColours(ui::kProblemColours);
  cmdCancelClose.SetDescription(text);
  if (txbText.selection().length == 0) {
    txbText.Select({txbText.length(), 0});  // the box has become higher
    cmdCancelClose.SetFocus();
  }
  if (kind == EndKind::kBad) SetTaskProgress(1, ui::TaskState::kFailed);
  front_end().Notify(*this, title_, text);
}

void frmReport::ShowFileAtHand(const std::string& path, FileAtHand is) {
  Label1.SetText(is == FileAtHand::kCompared   ? kComparing
                 : is == FileAtHand::kReadBack ? kReadingBack
                                               : kCopying);
  Label1.SetVisible(!path.empty());
  lblFileName.SetText(path);
  lblFileName.SetToolTip(path);
  lblFileName.SetVisible(!path.empty());
}

void frmReport::ShowSaving() {
  Label1.SetVisible(false);
  lblFileName.SetText(texts_.GetProgramText(text::kFlushing));
  lblFileName.SetToolTip("");
  lblFileName.SetVisible(true);
}

void frmReport::ShowProgress(double fraction, const std::string& details, const std::string& time_left) {
  barProgress.SetFraction(fraction);
  time_left_ = time_left;
  lblDetails.SetText(time_left.empty() ? details : details + ", " + time_left);
  SetTaskProgress(fraction, task_state());
  ShowState();
}

void frmReport::DisplayFreeSpace(const std::string& drive, const std::string& free_space_text) {
  lblFreeSpace.SetText("Free on Drive " + drive + " " + free_space_text);
  PlaceFreeSpace();
}

void frmReport::Form_Unload() {
  if (!main_.OperationRunning()) return CloseReport();
  if (main_.StopRequested()) return;
  if (Paused) {
    AskWhetherToCancel();
  } else if (cmdPauseContinue.visible() || phase_ == Phase::kFull) {
    PauseOperation();
  }
}

void frmReport::AskWhetherToCancel() {
  const ui::MessageBox question{
      texts_.GetProgramText(subject_.copies_files ? text::kAskCancelBackup : text::kAskCancelOperation), "",
      ui::Icon::kQuestion, true};
  if (front_end().dialogs().AskYesNo(*this, question) && Paused) cmdCancelClose_Click();
}

}  // namespace report
