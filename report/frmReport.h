#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "report/main_window.h"
#include "report/problem_list.h"
#include "report/report_line.h"
#include "report/text_search.h"
#include "text/program_texts.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/text_box.h"

namespace report {

/// What is done with the file at hand.
enum class FileAtHand { kCopied, kReadBack, kCompared };

/// How the end of a run is shown.
enum class EndKind {
  kGood,
  kBad,  ///< something failed, also before the user cancelled: in another colour, with a mark
};

/// What a report is about.
struct ReportSubject {
  std::string title = {};  ///< of the window
  std::string source_folder = {};
  std::string target_folder = {};  ///< empty: an operation without target; its line is left out
  bool copies_files = false;       ///< the operation does
  bool is_suppressed = false;      ///< the detailed report is; what is left needs no large window
  bool is_unattended = false;      ///< nobody reads a full report before it is emptied
  bool loses_end_if_full = false;  ///< a full report does, for the notice that follows it
};

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
  /// Shows the window with an empty report and the buttons of a running operation.
  void BeginReport(ReportSubject subject);

  /// Appends a text to the report, followed by a line end when `NewLine`, and lets pending events run: the
  /// operation may have been paused, continued and cancelled in this call. A minimised window comes back. A
  /// report that is full (ReportCapacity) is shown for WaitSeconds more, then emptied; the text
  /// of the call that finds it full is not shown, and only the line sink gets it. Where nobody reads it (it
  /// is hidden, the run is unattended or cancelled, or the program ends) a full report is emptied at once.
  /// With an empty text and no line end it only lets pending events run. The screen follows some ten times a
  /// second, less often where it is slow, and before the user is asked for anything.
  void Output(const std::string& Text, bool NewLine) { Write(Text, NewLine, WhenFull::kDrop); }
  /// The same for a text that must not be lost: one that finds the report full is written when it is empty.
  void OutputKept(const std::string& Text, bool NewLine) { Write(Text, NewLine, WhenFull::kKeep); }
  /// A whole line about something that went wrong; it is not lost, and F8 leads to it.
  void OutputProblem(const std::string& Text);
  /// Lists what OutputProblem() wrote to parts of the report that were emptied meanwhile, for F8 as well: as
  /// much of it as half a report holds. A report that has no room for it is emptied first. The line sink,
  /// which got these lines, does not get them again. Without such lines nothing is written.
  void RepeatLostProblems();
  /// Brings the screen up to date with what was written.
  void ShowText();
  /// The time from one refresh of the screen to the next: 100 ms, up to 500 where a refresh takes long.
  std::chrono::milliseconds shown_every() const { return shown_every_; }

  /// What state the last line of the report is in.
  const ReportLine& line() const { return line_; }
  /// The open line is meant to stay open, so that the next text goes on in it.
  void LeaveLineOpen() { line_.LeaveOpen(); }
  /// Ends the last line when there is something in it.
  void CloseLine();
  /// From now on `sink` gets every line, also those that the window never shows. The notices about a full
  /// report are no lines.
  void SetLineSink(LineSink sink) { line_.SetSink(std::move(sink)); }
  bool HoldsText() const { return txbText.length() > 0; }

  // --- What is shown beside the report.
  /// The file that is at hand, and what is done with it; none when empty.
  void ShowFileAtHand(const std::string& path, FileAtHand is = FileAtHand::kCopied);
  /// In its place: that what was copied is being brought safely to the disk.
  void ShowSaving();
  /// What has been copied: "Copied: " and so on.
  void ShowBytesCopied(const std::string& text) { lblBytesCopied.SetText(text); }
  /// 0 to 1; in the window, in its title and on the system's task bar. `details` is beside it.
  void ShowProgress(double fraction, const std::string& details = {}, const std::string& time_left = {});
  /// "Free on Drive E: 301.33 Mb".
  void DisplayFreeSpace(const std::string& drive, const std::string& free_space_text);

  // --- Buttons.
  /// The buttons for the end of an operation: Copy, and the button that closes the window with this caption.
  /// The progress goes, and a report that was hidden is shown again.
  void SetReportButtons(const std::string& caption);
  /// How the run ended, in one line: in the window, in its title, on the task bar, as the description of the
  /// button that closes the window, which gets the focus, and for a user who is elsewhere. To be called after
  /// SetReportButtons(). From then on the window is called `title`.
  void ShowEnd(const std::string& title, const std::string& text, EndKind kind);
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
  /// The title bar's close button. It never ends a running operation: it pauses it, and asks whether to
  /// cancel one that is paused.
  void Form_Unload();
  /// "Pause" holds the operation and returns when the user has let it go on or cancelled it, or the program
  /// ends. "Continue" lets it go on.
  void cmdPauseContinue_Click();
  void cmdCancelClose_Click();
  void cmdCopyToClipboard_Click();
  void chkSuppressDisplayOfReport_Click();
  void txbText_MouseUp();
  void cmdNextProblem_Click() { GoToProblem(Direction::kForward); }
  void cmdOpenTarget_Click();
  void txbFind_Change();
  void cmdFindNext_Click() { FindOn(Direction::kForward); }
  /// F8 goes to the next problem, F3 to the next place of what is looked for, both back with Shift; Ctrl and
  /// F opens the box for it.
  bool KeyPressed(const ui::KeyPress& press);

  bool TextboxFull = false;
  bool Paused = false;
  std::int16_t WaitSeconds = 15;
  /// A report of more characters than this gets the window's full working size.
  static constexpr std::size_t ReportResizeThreshold = 500;
  /// A report of more characters than this is emptied before it goes on.
  std::size_t ReportCapacity = 61'440;

  ui::Label lblState{this, "lblState"};
  ui::Label lblDetails{this, "lblDetails"};
  ui::Button cmdNextProblem{this, "cmdNextProblem"};
  ui::ProgressBar barProgress{this, "barProgress"};
  ui::Label Label1{this, "Label1"};
  ui::Label lblFileName{this, "lblFileName"};
  ui::Label lblSourceCaption{this, "lblSourceCaption"};
  ui::Label lblSourceDirpath{this, "lblSourceDirpath"};
  ui::Label lblTargetCaption{this, "lblTargetCaption"};
  ui::Label lblTargetDirpath{this, "lblTargetDirpath"};
  ui::TextBox txbText{this, "txbText", ui::TextBox::Lines::kMany};
  ui::Label lblFind{this, "lblFind"};
  ui::TextBox txbFind{this, "txbFind"};
  ui::Button cmdFindNext{this, "cmdFindNext"};
  ui::Label lblFound{this, "lblFound"};
  ui::Label lblBytesCopied{this, "lblBytesCopied"};
  ui::Label lblFreeSpace{this, "lblFreeSpace"};
  ui::Button cmdPauseContinue{this, "cmdPauseContinue"};
  ui::Button cmdOpenTarget{this, "cmdOpenTarget"};
  ui::CheckBox chkSuppressDisplayOfReport{this, "chkSuppressDisplayOfReport"};
  ui::Button cmdCopyToClipboard{this, "cmdCopyToClipboard"};
  ui::Button cmdCancelClose{this, "cmdCancelClose"};

 private:
  enum class Phase { kRunning, kFull, kPaused, kStopping, kEnded };
  enum class WhenFull { kDrop, kKeep };

  void Write(const std::string& Text, bool NewLine, WhenFull when_full);
  bool ShowTextWhenDue(std::chrono::milliseconds now);
  void EnterPhase(Phase phase);
  void ShowState();
  bool SomebodyReads() const;
  void ShowProblemButton();
  void GoToProblem(Direction direction);
  void OpenFind();
  void CloseFind();
  void FindOn(Direction direction);
  void FindFrom(std::size_t character, Direction direction);

  void BringBackMinimisedWindows();
  void ResizeToWorkingSize();
  bool SizedByUser() const;
  void EmptyFullTextbox(WhenFull when_full);
  void ShowFullTextbox();
  void SnipEnd();

  void SetCopyCaption(const std::string& caption);
  void SetPauseCaption(const std::string& caption);
  void SetCancelCaption(const std::string& caption);
  void PauseOperation();
  void AskWhetherToCancel();
  void CloseReport();
  void TakeBackCountingNote();

  void SetLooks();
  void SetTextsAndKeys();
  void SetHandlers();
  ui::Twips PlaceHeader();
  void PlaceBody(ui::Twips top);
  ui::Size Room() const;
  void PlaceFreeSpace();
  ui::Twips PlaceFindRow(ui::Twips bottom);

  platform::Clock& clock_;
  const text::ProgramTexts& texts_;
  MainWindow& main_;
  ReportLine line_;
  ReportSubject subject_;
  std::string title_;  ///< without the progress
  std::string time_left_;
  std::string end_;  ///< how the run ended; empty while it runs
  Phase phase_ = Phase::kEnded;
  ProblemList problems_;
  std::optional<std::chrono::milliseconds> shown_at_;  ///< when the screen last got the text
  std::chrono::milliseconds shown_every_{100};
  std::chrono::milliseconds close_from_{0};  ///< before that moment "Close" does nothing
  ui::Size size_set_;                        ///< the size that the window was given last, not by the user
};

}  // namespace report
