#include <algorithm>
#include <limits>

#include "base/utf8.h"
#include "report/frmReport.h"
#include "text/str_proc.h"
#include "text/text_numbers.h"
#include "ui/front_end.h"

namespace report {
namespace {

constexpr std::chrono::milliseconds kShownEvery{100};
constexpr std::chrono::milliseconds kShownRarest{500};
/// Showing takes at most one part in so many of the time: a screen may be slow, or far away.
constexpr int kPartsOfTime = 20;
constexpr std::int16_t kFullHeight = 850;
constexpr ui::Twips kNarrowerThanMain = 1'000;
constexpr std::size_t kSnippedCharacters = 3'048;

std::int16_t NextWait(std::int16_t seconds) {
  if (seconds == 15) return 10;
  return seconds == 10 ? std::int16_t{5} : seconds;
}

}  // namespace

void frmReport::Write(const std::string& Text, bool NewLine, WhenFull when_full) {
  if (!Text.empty() || NewLine) {
    BringBackMinimisedWindows();
    if (!subject_.is_suppressed && txbText.length() > ReportResizeThreshold) {
      ResizeToWorkingSize();
    }
    line_.Write(Text, NewLine);
    if (txbText.length() > ReportCapacity) TextboxFull = true;
    if (TextboxFull) {
      EmptyFullTextbox(when_full);
      if (when_full == WhenFull::kDrop) return;
    }
    txbText.AppendLater(NewLine ? Text + "\r\n" : Text);
  }
  const std::chrono::milliseconds begin = clock_.Monotonic();
  const bool shows = ShowTextWhenDue(begin);
  front_end().RunPendingEvents();
  if (shows)
    shown_every_ = std::clamp((clock_.Monotonic() - begin) * kPartsOfTime, kShownEvery, kShownRarest);
}

void frmReport::OutputProblem(const std::string& Text) {
  const std::size_t before = txbText.length();
  OutputKept(Text, true);
  const bool emptied = txbText.length() < before + base::utf8::Length(Text);
  problems_.Add(emptied ? 0 : before, Text);
}

void frmReport::RepeatLostProblems() {
  if (!problems_.HasLost()) return;
  CloseLine();
  if (txbText.length() > ReportCapacity / 2) EmptyFullTextbox(WhenFull::kKeep);
  const auto append = [this](const std::string& line) { txbText.AppendLater(line + "\r\n"); };
  const ProblemList::Lost lost = problems_.TakeLost();
  append("");
  append(texts_.GetProgramText(text::kLostProblems));
  for (const std::string& line : lost.lines) {
    problems_.Add(txbText.length(), line);
    append(line);
  }
  if (lost.more > 0) append(texts_.GetProgramText(text::kMoreLostProblems) + " " + std::to_string(lost.more));
  ShowText();
}

void frmReport::ShowText() {
  shown_at_ = clock_.Monotonic();
  txbText.ShowAppended();
  txbText.Repaint();
}

/// Leaves the painting to the events that are run next: done here, it would be done twice. Returns whether
/// there is something to paint.
bool frmReport::ShowTextWhenDue(std::chrono::milliseconds now) {
  if (shown_at_ && now - *shown_at_ < shown_every_) return false;
  shown_at_ = now;
  txbText.ShowAppended();
  return true;
}

void frmReport::CloseLine() {
  if (line_.open()) Output("", true);
}

void frmReport::BringBackMinimisedWindows() {
  Restore();
  if (main_.Window().state() == ui::WindowState::kNormal) return;
  main_.Window().Restore();
  if (main_.Window().visible()) Show();  // above the main window, which came after it
}

void frmReport::ResizeToWorkingSize() {
  if (SizedByUser()) return;
  constexpr int kLargest = std::numeric_limits<std::int16_t>::max();
  const int width = std::min(main_.Window().width() - kNarrowerThanMain, kLargest);
  ResizeForm(kFullHeight, static_cast<std::int16_t>(width));
}

void frmReport::SnipEnd() {
  txbText.RemoveFromEnd(kSnippedCharacters);
  txbText.Append("  [snip]");
}

/// Where nobody reads it a rest would only hold the operation up.
bool frmReport::SomebodyReads() const {
  return txbText.visible() && !subject_.is_unattended && !main_.StopRequested();
}

void frmReport::EmptyFullTextbox(WhenFull when_full) {
  const bool reads = SomebodyReads();
  if (reads) ShowFullTextbox();
  txbText.SetText("");
  problems_.Emptied(ReportCapacity / 2);
  if (when_full == WhenFull::kDrop) line_.Emptied();
  TextboxFull = false;
  front_end().RunPendingEvents();
  if (!visible() && reads && !front_end().quitting()) Show();
}

void frmReport::ShowFullTextbox() {
  if (subject_.loses_end_if_full) SnipEnd();
  txbText.Append("\r\n\r\nThe textbox is full.\r\nAfter" + StrProc::Str(WaitSeconds) +
                 " seconds the textbox will be emptied and the report will continue.");
  const Phase before = phase_;
  const bool pause_was_visible = cmdPauseContinue.visible();
  const bool pause_had_focus = focused() == &cmdPauseContinue;
  cmdPauseContinue.SetVisible(false);
  ShowText();
  EnterPhase(Phase::kFull);
  front_end().RunPendingEvents();  // a window that is closed now pauses the operation before the wait
  if (front_end().quitting() || !SomebodyReads()) return;
  EnterPhase(Phase::kFull);
  Repaint();
  clock_.Sleep(std::chrono::seconds(WaitSeconds));
  WaitSeconds = NextWait(WaitSeconds);
  EnterPhase(before);
  cmdPauseContinue.SetVisible(pause_was_visible);
  if (pause_had_focus) cmdPauseContinue.SetFocus();
}

}  // namespace report
