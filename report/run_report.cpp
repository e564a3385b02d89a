#include "report/run_report.h"

#include <algorithm>
#include <utility>

#include "base/utf8.h"
#include "text/str_proc.h"
#include "ui/front_end.h"

namespace report {
namespace {

using base::utf8::Printable;

constexpr std::chrono::milliseconds kFreeSpaceEvery{1'000};

/// Before a line about one file or folder.
constexpr const char* kLineIndent = "      ";

/// The lines of a message as one.
std::string OneLine(std::string text) {
  for (auto end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n")) {
    text.erase(end, 1);
    text[end] = ' ';
  }
  return text;
}

FolderResult ResultOf(const engine::FolderCounts& folder) {
  return {folder.files_in_folder, folder.counts.new_files, folder.counts.modified_files,
          folder.counts.copied};
}

}  // namespace

RunReport::RunReport(frmReport& window, MainWindow& main, platform::Clock& clock,
                     const text::NumberMarks& marks, RunFacts facts)
    : window_(window),
      main_(main),
      clock_(clock),
      marks_(marks),
      facts_(std::move(facts)),
      progress_(facts_.expected, marks, facts_.compares_contents) {}

void RunReport::Begin(const std::string& title, const std::vector<std::string>& heading) {
  window_.BeginReport({.title = title,
                       .source_folder = Printable(facts_.source_folder),
                       .target_folder = Printable(facts_.target_folder),
                       .copies_files = app::IsCopyOperation(facts_.operation),
                       .is_suppressed = facts_.suppress_detailed_report,
                       .is_unattended = facts_.unattended,
                       .loses_end_if_full = app::IsListOperation(facts_.operation)});
  ShowFreeSpace();
  for (const std::string& line : heading) window_.Output(Printable(line), true);
}

bool RunReport::ShowsEveryFolder(std::int64_t files_in_folder) const {
  if (app::IsListOperation(facts_.operation)) return true;
  return facts_.operation == app::Operation::kBackupAllFiles && files_in_folder != 0;
}

void RunReport::FolderBegun(const engine::FolderCounts& folder) {
  in_folder_ = true;
  head_line_written_ = false;
  folder_ = folder.path;
  files_in_folder_ = folder.files_in_folder;
  const bool shows_copies = facts_.operation == app::Operation::kBackupModifiedFiles;
  if (ShowsEveryFolder(files_in_folder_) || (shows_copies && folder.files_to_copy > 0)) WriteHeadLine();
}

void RunReport::WriteHeadLine() {
  if (head_line_written_ || facts_.suppress_detailed_report) return;
  head_line_written_ = true;
  if (window_.line().state() == ReportLine::State::kOpen) window_.CloseLine();
  DisplayNumFilesInFolder(window_, true, folder_, facts_.source_folder, files_in_folder_);
}

void RunReport::FolderEnded(const engine::FolderCounts& folder) {
  const engine::FileCounts& files = folder.counts;
  const bool looks_for_due =
      !app::IsListOperation(facts_.operation) && facts_.operation != app::Operation::kBackupAllFiles;
  if (looks_for_due && files.new_files + files.modified_files + files.failed > 0) WriteHeadLine();
  if (head_line_written_) WriteResult(folder);
  in_folder_ = false;
}

void RunReport::WriteResult(const engine::FolderCounts& folder) {
  if (app::IsCopyOperation(facts_.operation)) {
    DisplayFilesCopied(window_, facts_.operation, ResultOf(folder));
  } else if (facts_.operation == app::Operation::kCheckBackupState) {
    DisplayNewAndModifiedFiles(window_, ResultOf(folder));
  }
  if (window_.line().state() == ReportLine::State::kOpen) window_.CloseLine();
}

void RunReport::WriteLine(const std::string& text) {
  const bool shows_when_wrong = facts_.operation == app::Operation::kCheckBackupState ||
                                facts_.operation == app::Operation::kBackupModifiedFiles;
  if (in_folder_ && shows_when_wrong) WriteHeadLine();
  window_.CloseLine();
  window_.OutputProblem(Printable(text));
}

void RunReport::CopyBegun(const std::string& source_path) {
  file_ = source_path;
  is_ = FileAtHand::kCopied;
  copying_ = true;
  ShowWhenDue();
}

void RunReport::CopyEnded(std::int64_t bytes_copied, std::int64_t files_copied) {
  copied_ = Sum{bytes_copied, files_copied};
  copying_ = false;
  progress_.Copied(files_copied);
  ShowWhenDue();
}

void RunReport::ReadingBack(const std::string& source_path) {
  file_ = source_path;
  is_ = FileAtHand::kReadBack;
  ShowWhenDue();
}

void RunReport::Comparing(const std::string& source_path) {
  file_ = source_path;
  is_ = FileAtHand::kCompared;
  ShowWhenDue();
}

void RunReport::Compared(std::int64_t bytes, std::int64_t files) {
  compared_ = Sum{bytes, files};
  progress_.Compared(files);
  ShowWhenDue();
}

void RunReport::Saving(bool is_saving) {
  file_.reset();
  saving_ = is_saving;
  ShowNothingAtHand();
}

void RunReport::Progress(const engine::Reached& reached) {
  progress_.Reached(reached.fraction, reached.bytes);
  ShowWhenDue();
}

void RunReport::Breathe() {
  ShowWhenDue();
  window_.Output("", false);
}

bool RunReport::StopRequested() { return main_.StopRequested() || window_.front_end().quitting(); }

bool RunReport::AskWhetherToGoOn(const engine::Question& question) {
  if (facts_.unattended) {
    WriteLine(kLineIndent + OneLine(question.statement));
    return true;
  }
  if (StopRequested()) return true;  // the run ends without an answer
  const std::string text = question.statement + "\r\n\r\n" + question.question;
  window_.ShowText();
  window_.front_end().Notify(window_, "", text);
  return window_.front_end().dialogs().AskYesNo(window_, {text, "", ui::Icon::kExclamation});
}

void RunReport::Tell(const std::string& text) {
  if (facts_.unattended) {
    WriteLine(OneLine(text));
    return;
  }
  if (StopRequested()) return;
  window_.ShowText();
  window_.front_end().Notify(window_, window_.text(), text);
  window_.front_end().dialogs().Show(window_, {text, "", ui::Icon::kExclamation});
}

void RunReport::Pause() {
  if (facts_.unattended || StopRequested()) return;
  copying_ = false;  // all that was on its way is settled, also a file that failed
  window_.cmdPauseContinue_Click();
}

void RunReport::ShowWhenDue() {
  const std::chrono::milliseconds now = clock_.Monotonic();
  if (shown_ && now - *shown_ < window_.shown_every()) return;
  shown_ = now;
  progress_.Passed(now);
  ShowLatest();
  if (!free_space_shown_ || now - *free_space_shown_ >= kFreeSpaceEvery) ShowFreeSpace();
}

void RunReport::ShowLatest() {
  if (file_) window_.ShowFileAtHand(Printable(*file_), is_);
  ShowSums();
  const double fraction = progress_.fraction();
  window_.ShowProgress(fraction, progress_.Details(), progress_.TimeLeft());
  file_.reset();
}

void RunReport::ShowSums() {
  std::string text = copied_ ? InWords("Copied: ", *copied_) : std::string();
  if (compared_) text += (text.empty() ? "" : ".  ") + InWords("Compared: ", *compared_);
  if (!text.empty()) window_.ShowBytesCopied(text);
}

std::string RunReport::InWords(const char* what, const Sum& sum) const {
  return what + StrProc::FormatByteCountWithMb(static_cast<double>(sum.bytes), false, marks_) + " in " +
         text::GroupedNumber(sum.files, marks_) + " file" + StrProc::PluralSuffix(sum.files);
}

void RunReport::ShowHeld() {
  progress_.Held(clock_.Monotonic());
  ShowLatest();
  if (!copying_) ShowNothingAtHand();
}

void RunReport::ShowNothingAtHand() { saving_ ? window_.ShowSaving() : window_.ShowFileAtHand(""); }

void RunReport::ShowFreeSpace() {
  if (!facts_.free_space_text) return;
  free_space_shown_ = clock_.Monotonic();
  window_.DisplayFreeSpace(facts_.target_drive, facts_.free_space_text());
}

}  // namespace report
