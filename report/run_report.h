#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/data/operation.h"
#include "engine/listener/listener.h"
#include "platform/clock.h"
#include "report/frmReport.h"
#include "report/main_window.h"
#include "report/report_texts.h"
#include "report/run_progress.h"
#include "text/grouped_number.h"

namespace report {

/// One run, as far as its report needs to know it.
struct RunFacts {
  app::Operation operation = app::Operation::kListIncludedSubfolders;
  bool suppress_detailed_report = false;         ///< only problems, refusals and the summary
  bool unattended = false;                       ///< nobody is there: no message box, no question, no pause
  std::string source_folder;                     ///< as the user knows it
  std::string target_folder;                     ///< empty for an operation without target
  std::string modified_since;                    ///< the text of the chosen period
  std::string target_drive;                      ///< as the free space names it, such as "E:"
  std::function<std::string()> free_space_text;  ///< the free space on the target; may be empty
  Expected expected = {};                        ///< what was counted before
  bool compares_contents = false;                ///< also of files that seem up to date
  bool reads_back = false;                       ///< what is copied
};

/// Turns what the engine tells during a run into the lines of the report, and answers it.
///
/// Which folders get a line, unless the detailed report is suppressed: when listing every folder; when
/// backing up all files every folder that holds files; otherwise every folder in which something is due or
/// went wrong, from the moment when that turns out. The labels and the bar follow as often as the window
/// shows its text, the free space every second. Everything passed in outlives it.
class RunReport : public engine::Listener {
 public:
  RunReport(frmReport& window, MainWindow& main, platform::Clock& clock, const text::NumberMarks& marks,
            RunFacts facts);

  /// Shows the report window with a new report that begins with these lines.
  void Begin(const std::string& title, const std::vector<std::string>& heading);

  /// Shows what has come since the window's labels were last refreshed, which happens at most ten times a
  /// second.
  void ShowLatest();
  /// The same for a run that is about to be held.
  void ShowHeld();
  /// How long the run has been at work, as far as its labels have followed it; a hold does not count.
  std::chrono::milliseconds worked() const { return progress_.worked(); }

  // --- engine::Listener
  void FolderBegun(const engine::FolderCounts& folder) override;
  void FolderEnded(const engine::FolderCounts& folder) override;
  void WriteLine(const std::string& text) override;
  void CopyBegun(const std::string& source_path) override;
  void CopyEnded(std::int64_t bytes_copied, std::int64_t files_copied) override;
  void ReadingBack(const std::string& source_path) override;
  void Comparing(const std::string& source_path) override;
  void Compared(std::int64_t bytes, std::int64_t files) override;
  void Saving(bool is_saving) override;
  void Progress(const engine::Reached& reached) override;
  void Breathe() override;
  bool StopRequested() override;
  bool AskWhetherToGoOn(const engine::Question& question) override;
  void Tell(const std::string& text) override;
  bool PauseWished() override { return main_.PauseAfterFirstCopy(); }
  void Pause() override;

  // --- The summaries; one of them ends the report.
  void ReportForListFolders(const engine::Totals& totals);
  void ReportForBackupAllFiles(const engine::Totals& totals);
  void ReportForBackupModifiedFiles(const engine::Totals& totals);
  void ReportForCheckBackupState(const engine::Totals& totals);
  /// The one of the run's operation.
  void WriteSummary(const engine::Totals& totals);

 private:
  struct Sum {
    std::int64_t bytes = 0;
    std::int64_t files = 0;
  };

  bool ShowsEveryFolder(std::int64_t files_in_folder) const;
  void WriteHeadLine();
  void WriteResult(const engine::FolderCounts& folder);

  void BeginSummary();
  void WriteCount(const char* caption, std::int64_t count);
  void WriteSize(const char* caption, std::int64_t bytes);
  void WriteSinceHeading();
  void WriteCopied(const engine::Totals& totals);
  void WriteCompared(const engine::Totals& totals);
  void WriteReadBack(const engine::Totals& totals);
  void WriteWarningLine(const engine::Totals& totals);

  void ShowWhenDue();
  void ShowNothingAtHand();
  void ShowSums();
  std::string InWords(const char* what, const Sum& sum) const;
  void ShowFreeSpace();

  frmReport& window_;
  MainWindow& main_;
  platform::Clock& clock_;
  text::NumberMarks marks_;
  RunFacts facts_;
  RunProgress progress_;

  bool in_folder_ = false;
  bool copying_ = false;  ///< a file is being copied
  bool saving_ = false;   ///< the run waits for the disk
  bool head_line_written_ = false;
  std::string folder_;
  std::int64_t files_in_folder_ = 0;

  // What has come since the labels were set last.
  std::optional<std::string> file_;
  FileAtHand is_ = FileAtHand::kCopied;
  std::optional<Sum> copied_;
  std::optional<Sum> compared_;
  std::optional<std::chrono::milliseconds> shown_;
  std::optional<std::chrono::milliseconds> free_space_shown_;
};

}  // namespace report
