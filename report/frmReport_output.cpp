#include <algorithm>
#include <limits>

#include "report/frmReport.h"
#include "report/str_proc.h"
#include "ui/front_end.h"

namespace report {
namespace {

constexpr std::int16_t kFullHeight = 850;
constexpr ui::Twips kNarrowerThanMain = 1'000;
constexpr std::size_t kSnippedCharacters = 3'048;

std::int16_t NextWait(std::int16_t seconds) {
  if (seconds == 15) return 10;
  return seconds == 10 ? std::int16_t{5} : seconds;
}

}  // namespace

void frmReport::Output(const std::string& Text, bool NewLine) {
  if (!Text.empty() || NewLine) {
    BringBackMinimisedWindows();
    if (!main_.SuppressDetailedReports() && txbText.length() > main_.ReportResizeThreshold()) {
      ResizeToWorkingSize();
    }
    line_.Write(Text, NewLine);
    if (txbText.length() > main_.ReportCapacity()) TextboxFull = true;
    if (TextboxFull) {
      EmptyFullTextbox();
      return;
    }
    txbText.Append(NewLine ? Text + "\r\n" : Text);
    txbText.Repaint();
  }
  front_end().RunPendingEvents();
}

void frmReport::CloseLine() {
  if (line_.open()) Output("", true);
}

void frmReport::BringBackMinimisedWindows() {
  Restore();
  main_.Window().Restore();
}

void frmReport::ResizeToWorkingSize() {
  if (SizedByUser()) return;
  constexpr int kLargest = std::numeric_limits<std::int16_t>::max();
  const int width = std::min(main_.Window().width() - kNarrowerThanMain, kLargest);
  ResizeForm(kFullHeight, static_cast<std::int16_t>(width));
  PositionReportButtons();
}

void frmReport::SnipEnd() {
  txbText.RemoveFromEnd(kSnippedCharacters);
  txbText.Append("  [snip]");
  txbText.Repaint();
}

void frmReport::EmptyFullTextbox() {
  if (!main_.Unattended() && !front_end().quitting()) ShowFullTextbox();
  txbText.SetText("");
  line_.Emptied();
  TextboxFull = false;
  Repaint();
  front_end().RunPendingEvents();
  if (!visible() && !front_end().quitting()) Show();
}

void frmReport::ShowFullTextbox() {
  if (main_.SnipFullReport()) SnipEnd();
  txbText.Append("\r\n\r\nThe textbox is full.\r\nAfter" + StrProc::Str(WaitSeconds) +
                 " seconds the textbox will be emptied and the report will continue.");
  const bool pause_was_visible = cmdPauseContinue.visible();
  const bool pause_had_focus = focused() == &cmdPauseContinue;
  cmdPauseContinue.SetVisible(false);
  Repaint();
  front_end().RunPendingEvents();
  if (front_end().quitting()) return;
  clock_.Sleep(std::chrono::seconds(WaitSeconds));
  WaitSeconds = NextWait(WaitSeconds);
  cmdPauseContinue.SetVisible(pause_was_visible);
  if (pause_had_focus) cmdPauseContinue.SetFocus();
}

}  // namespace report
