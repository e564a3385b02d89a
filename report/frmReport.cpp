#include "report/frmReport.h"

#include "report/window_look.h"
#include "text/text_numbers.h"
#include "ui/front_end.h"

namespace report {

frmReport::frmReport(ui::FrontEnd& front_end, platform::Clock& clock, const text::ProgramTexts& texts,
                     MainWindow& main)
    : Form(front_end, "frmReport", ui::FormStyle::kReport), clock_(clock), texts_(texts), main_(main) {
  Form_Load();
}

void frmReport::Form_Load() {
  WaitSeconds = 15;
  SetLooks();
  SetTextsAndKeys();
  SetHandlers();
  constexpr ui::Twips kStartHeight = 6'000;
  constexpr ui::Size kSmallest{10'200, 3'900};  // inside: all buttons side by side, some lines of text
  const ui::Rect& main = main_.Window().bounds();
  SetBounds({main.left + 500, main.top + 500, main.width - 1'000, kStartHeight});
  SetSmallest(kSmallest);
  size_set_ = {width(), height()};
  SetReportButtons2(false, false, "", false, "");
  Form_Resize();
}

void frmReport::SetLooks() {
  SetControlsFontName(*this, kWindowFont);
  SetControlsBackColor(*this, kWindowColours);
  txbText.SetFont({kReportFont, 9, false});
  txbText.SetColours(kPaperColours);
}

void frmReport::SetTextsAndKeys() {
  SetText("Report");
  lblSourceCaption.SetText("Source: ");
  lblTargetCaption.SetText("Target: ");
  Label1.SetText("File now being copied: ");
  barProgress.SetSpokenName("Progress of the operation");
  txbText.SetReadOnly(true);
  txbText.SetSpokenName("Report");
  txbText.SetAccessKey('R');
  chkSuppressDisplayOfReport.SetText("Suppress display of report");
  chkSuppressDisplayOfReport.SetAccessKey('S');
  cmdCopyToClipboard.SetAccessKey('Y');
  SetCopyCaption("Copy selected text to clipboard");
}

void frmReport::SetHandlers() {
  on_close = [this] { Form_Unload(); };
  on_resize = [this] { Form_Resize(); };
  on_activate = [this] { Form_Activate(); };
  txbText.on_mouse_up = [this] { txbText_MouseUp(); };
  // Its handler waits until the same button is pressed again.
  cmdPauseContinue.AllowReentry();
  cmdPauseContinue.on_mouse_up = [this] { cmdPauseContinue_Click(); };
  cmdCancelClose.on_mouse_up = [this] { cmdCancelClose_Click(); };
  cmdCopyToClipboard.on_mouse_up = [this] { cmdCopyToClipboard_Click(); };
  chkSuppressDisplayOfReport.on_click = [this] { chkSuppressDisplayOfReport_Click(); };
}

void frmReport::BeginReport(const std::string& title, const std::string& source_folder,
                            const std::string& target_folder) {
  line_.StartOver();
  txbText.SetText("");
  SetText(title);
  lblSourceDirpath.SetText(source_folder);
  lblSourceDirpath.SetToolTip(source_folder);
  lblTargetCaption.SetVisible(!target_folder.empty());
  lblTargetDirpath.SetText(target_folder);
  lblTargetDirpath.SetToolTip(target_folder);
  lblBytesCopied.SetText("");
  lblFreeSpace.SetText("");
  ShowFileBeingCopied("");
  barProgress.SetVisible(true);
  ShowProgress(0);
  Paused = false;
  chkSuppressDisplayOfReport.SetValue(0);
  txbText.SetVisible(true);
  SetReportButtons2(false, true, "Pause", false, "");
  Show();
  Form_Resize();  // only a window that has been shown knows its inner size
  cmdPauseContinue.SetFocus();
}

void frmReport::ShowFileBeingCopied(const std::string& path) {
  Label1.SetVisible(!path.empty());
  lblFileName.SetText(path);
  lblFileName.SetToolTip(path);
}

void frmReport::ShowSaving() {
  Label1.SetVisible(false);
  lblFileName.SetText(texts_.GetProgramText(text::kFlushing));
  lblFileName.SetToolTip("");
}

void frmReport::ShowProgress(double fraction) {
  barProgress.SetFraction(fraction);
  SetTaskProgress(fraction);
}

void frmReport::DisplayFreeSpace(const std::string& drive, const std::string& free_space_text) {
  lblFreeSpace.SetText("Free on Drive " + drive + " " + free_space_text);
}

void frmReport::Form_Unload() {
  if (!main_.OperationRunning()) {
    CloseReport();
  } else if (!Paused && cmdPauseContinue.visible() && !main_.StopRequested()) {
    cmdPauseContinue_Click();
  }
}

}  // namespace report
