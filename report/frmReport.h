#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"
#include "report/main_window.h"
#include "report/report_line.h"
#include "text/program_texts.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/text_box.h"

namespace report {

/// The window in which an operation writes its report, and from which it is paused, cancelled and closed.
///
/// The operation runs on the one thread, inside the handler that started it. Output() is where pending events
/// are run during that time: only there do the buttons of this window act. The window is made by the first
/// operation and from then on only hidden, never unmade.
class frmReport : public ui::Form {
 public:
  /// Loads the window; it stays hidden. Everything passed in outlives it.
  frmReport(ui::FrontEnd& front_end, platform::Clock& clock, const text::ProgramTexts& texts,
            MainWindow& main);

  // --- The report.
  /// Shows the window with an empty report and the buttons of a running operation. `title` is the window's
  /// title; an empty target folder (an operation without target) leaves its line out.
  void BeginReport(const std::string& title, const std::string& source_folder,
                   const std::string& target_folder);

  /// Appends a text to the report, with a line end behind it when `NewLine`, and lets pending events run: the
  /// operation may have been paused, continued and cancelled in this call. A minimised window comes back. A
  /// report that is full (MainWindow::ReportCapacity) is shown for WaitSeconds more, then emptied; the text
  /// of the call that finds it full is not shown, and only the line sink gets it. Without anybody to read it
  /// (MainWindow::Unattended, or the program ends) a full report is emptied at once. With an empty text and
  /// no line end it only lets pending events run.
  void Output(const std::string& Text, bool NewLine);

  /// How the last line of the report stands.
  const ReportLine& line() const { return line_; }
  /// The open line is meant to stay open, so that the next text goes on in it.
  void LeaveLineOpen() { line_.LeaveOpen(); }
  /// Ends the last line when something stands in it.
  void CloseLine();
  /// From now on `sink` gets every line, also those that the window never shows. The notices about a full
  /// report are no lines.
  void SetLineSink(LineSink sink) { line_.SetSink(std::move(sink)); }
  bool HoldsText() const { return txbText.length() > 0; }

  // --- What is shown beside the report.
  /// The file that is being copied; none when empty.
  void ShowFileBeingCopied(const std::string& path);
  /// In its place: that what was copied is being brought safely to the disk.
  void ShowSaving();
  /// What has been copied: "Copied: " and so on.
  void ShowBytesCopied(const std::string& text) { lblBytesCopied.SetText(text); }
  /// 0 to 1; in the window and on the system's task bar.
  void ShowProgress(double fraction);
  /// "Free on Drive E: 301.33 Mb".
  void DisplayFreeSpace(const std::string& drive, const std::string& free_space_text);

  // --- Buttons.
  /// The buttons for the end of an operation: Copy, and the button that closes the window with this caption.
  /// The progress goes, and a report that was hidden is shown again.
  void SetReportButtons(const std::string& caption);
  /// Sets the three buttons. Captions of buttons that are not visible have no meaning.
  void SetReportButtons2(bool CopyVisible, bool PauseVisible, const std::string& PauseCaption,
                         bool CancelVisible, const std::string& CancelCaption);
  /// Puts the bottom row of controls under the labels.
  void PositionReportButtons();
  /// Sets the window's outer size and lays out its controls. A height below the working height of 8,500,
  /// which shows some 25 lines, becomes that height. The window stays on the screen.
  void ResizeForm(std::int16_t Height, std::int16_t Width);

  // --- Event handlers.
  void Form_Load();
  void Form_Activate();
  void Form_Resize();
  /// The title bar's close button. It never ends a running operation: it pauses it.
  void Form_Unload();
  /// "Pause" holds the operation and returns when the user has let it go on or cancelled it, or the program
  /// ends. "Continue" lets it go on.
  void cmdPauseContinue_Click();
  void cmdCancelClose_Click();
  void cmdCopyToClipboard_Click();
  void chkSuppressDisplayOfReport_Click();
  void txbText_MouseUp();

  bool TextboxFull = false;
  bool Paused = false;
  std::int16_t WaitSeconds = 15;

  ui::Label lblSourceCaption{this, "lblSourceCaption"};
  ui::Label lblSourceDirpath{this, "lblSourceDirpath"};
  ui::Label lblTargetCaption{this, "lblTargetCaption"};
  ui::Label lblTargetDirpath{this, "lblTargetDirpath"};
  ui::Label Label1{this, "Label1"};
  ui::Label lblFileName{this, "lblFileName"};
  ui::ProgressBar barProgress{this, "barProgress"};
  ui::TextBox txbText{this, "txbText", ui::TextBox::Lines::kMany};
  ui::Label lblBytesCopied{this, "lblBytesCopied"};
  ui::Label lblFreeSpace{this, "lblFreeSpace"};
  ui::Button cmdPauseContinue{this, "cmdPauseContinue"};
  ui::CheckBox chkSuppressDisplayOfReport{this, "chkSuppressDisplayOfReport"};
  ui::Button cmdCopyToClipboard{this, "cmdCopyToClipboard"};
  ui::Button cmdCancelClose{this, "cmdCancelClose"};

 private:
  void BringBackMinimisedWindows();
  void ResizeToWorkingSize();
  bool SizedByUser() const;
  ui::Rect OnItsScreen(ui::Rect bounds);
  void EmptyFullTextbox();
  void ShowFullTextbox();
  void SnipEnd();

  void SetCopyCaption(const std::string& caption);
  void SetPauseCaption(const std::string& caption);
  void SetCancelCaption(const std::string& caption);
  void PauseOperation();
  void CloseReport();
  void TakeBackCountingNote();
  bool NothingHalfDone() const;

  void SetLooks();
  void SetTextsAndKeys();
  void SetHandlers();
  void PlaceHeader();
  void PlaceBody();

  platform::Clock& clock_;
  const text::ProgramTexts& texts_;
  MainWindow& main_;
  ReportLine line_;
  ui::Size size_set_;  ///< the size that the window was given last, not by the user
};

}  // namespace report
