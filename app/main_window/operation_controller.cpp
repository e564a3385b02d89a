#include "app/main_window/operation_controller.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "app/confirmation/frmConfirmOperation.h"
#include "app/main_window/frmMain.h"
#include "app/operation/run_result.h"
#include "base/program_name.h"
#include "platform/path.h"
#include "services/date_pr2.h"
#include "services/disk_proc.h"
#include "text/text_numbers.h"

namespace app {

OperationController::OperationController(Context& context, frmMain& main_window)
    : context_(context), main_(main_window) {}

OperationController::~OperationController() = default;

report::frmReport& OperationController::ReportWindow() {
  if (!report_)
    report_ = std::make_unique<report::frmReport>(context_.front_end, context_.clock, context_.texts, *this);
  return *report_;
}

bool OperationController::ReportHoldsText() const { return report_ && report_->HoldsText(); }

void OperationController::ShowReport() { ReportWindow().Show(); }

void OperationController::Run() {
  stop_requested_ = false;
  running_ = true;
  warnings_ = main_.setup_commands.Warnings();
  const auto awake = context_.shell.KeepAwake();
  const auto begin = context_.clock.Monotonic();
  const bool unattended = Unattended();
  std::string reason;
  const engine::RunOutcome outcome = RunOperation(unattended ? &reason : nullptr);
  running_ = false;
  if (outcome.status == 0) RememberPace(outcome.totals);
  if (outcome.status == 0) ShowEnd(outcome);
  if (unattended) {
    const std::chrono::duration<double> seconds = context_.clock.Monotonic() - begin;
    ReportUnattended(outcome, TrueReason(outcome.status, reason), seconds.count());
  }
}

/// With `statusText` (an unattended run) a refusal is returned in it and no message is shown.
engine::RunOutcome OperationController::RunOperation(std::string* statusText) {
  const engine::Tools tools = EngineTools();
  engine::RunRequest request = RequestForRun();
  compares_contents_ = ComparesContents(request);
  reads_back_ = ReadsBack(request);
  expected_ = {};
  if (!IsListOperation(request.operation)) main_.RefreshFreeSpaceLabel();
  const auto show_note = [this](const std::string& note) { main_.ShowNote(note); };
  if (const auto refusal = CheckRequest(tools, request, show_note)) return Refuse(*refusal, statusText);
  request.checked_target = context_.files.IdentityOf(request.setup.TargetFolder);
  if (IsCopyOperation(request.operation) && statusText == nullptr && !Confirm(request))
    return {.status = engine::kNotConfirmed};
  std::optional<engine::OperationRun> run(std::in_place, tools, request);
  if (run->refusal()) return Refuse(*run->refusal(), statusText);

  OpenReport(run->Heading());
  main_.RefreshFreeSpaceLabel();
  main_.LockControls();
  engine::RunOutcome outcome = run->Run(*run_report_);
  outcome.totals.warnings += static_cast<std::int64_t>(warnings_.size());
  run_report_->WriteSummary(outcome.totals);
  CloseReport();
  run.reset();  // the target is looked at without its lock
  main_.UnlockControls();
  main_.RefreshFolderDisplays();
  return outcome;
}

engine::RunOutcome OperationController::Refuse(const engine::Refusal& refusal, std::string* statusText) {
  if (statusText != nullptr) {
    *statusText = refusal.UnattendedText();
  } else {
    std::string message = refusal.text;
    for (const std::string& warning : warnings_) message += "\r\n\r\n" + warning;
    context_.front_end.dialogs().Show(main_, {message, refusal.title, ui::Icon::kExclamation});
  }
  return {.status = refusal.status};
}

/// What the setup names is not in the window while it is away, and so looks to the engine as never chosen.
std::string OperationController::TrueReason(std::int16_t status, const std::string& reason) const {
  const bool of_target = status == engine::kTargetNotSpecified;
  const bool of_source = status == engine::kNothingToDo || status == engine::kNoFilesInSource ||
                         status == engine::kNoFilesInSetup;
  if (!of_target && !of_source) return reason;
  const std::string why = main_.setup_commands.WhyMissing(of_target);
  return why.empty() ? reason : why;
}

/// Of a run that did the one thing only: what else it did took time, too.
void OperationController::RememberPace(const engine::Totals& totals) {
  const std::int64_t compared = totals.counts.compared;
  const std::int64_t read_back = totals.counts.read_back;
  const double seconds = std::chrono::duration<double>(run_report_->worked()).count();
  if (compared > 0 && totals.counts.copied == 0)
    paces_.comparing = {compared, totals.bytes_compared, seconds};
  if (read_back > 0 && compared == 0) paces_.reading_back = {read_back, totals.bytes_read_back, seconds};
}

void OperationController::ShowEnd(const engine::RunOutcome& outcome) {
  const auto kind = SomethingFailed(outcome) ? report::EndKind::kBad : report::EndKind::kGood;
  ReportWindow().ShowEnd(OperationName(main_.CurrentOperation),
                         EndText(main_.CurrentOperation, outcome, context_.marks), kind);
}

engine::Tools OperationController::EngineTools() const {
  platform::FileSystem& files = context_.files;
  return {files,
          context_.clock,
          context_.texts,
          context_.marks,
          [&files](const std::string& path, double& free_bytes, double& total_bytes) {
            return DiskProc::GetDiskSpace(files, path, free_bytes, total_bytes);
          },
          [&files](const std::string& folder, std::string& error_text) {
            return DiskProc::IsWriteProtected(files, folder, error_text);
          },
          WhoRuns(),
          platform::ParentOf(main_.LastRunSetupPath)};
}

/// This program, for another that would copy to the same target.
std::string OperationController::WhoRuns() const {
  platform::Shell& shell = context_.shell;
  return std::string(base::kProgramName) + " (process " + std::to_string(shell.ProcessNumber()) + "), user " +
         shell.UserName() + ", computer " + shell.ComputerName() + ", since " +
         DatePr2::TimeStamp(context_.clock, context_.locale);
}

engine::RunRequest OperationController::RequestForRun() const {
  engine::RunRequest request;
  request.setup = main_.CurrentSetup();
  request.operation = main_.CurrentOperation;
  request.modified_since = DatePr2::ModifiedSinceLimit(request.setup.ModifiedSince, context_.clock);
  request.skip_picture_caches = main_.SkipPictureCaches;
  request.compare_contents = main_.CompareContents && !Unattended();
  request.read_back = main_.ReadBack && !Unattended();
  return request;
}

/// A refusal's reason is written to the report; then comes the line that sums the run up.
void OperationController::ReportUnattended(const engine::RunOutcome& outcome, const std::string& reason,
                                           double seconds) {
  exit_code_ = static_cast<int>(StatusOf(outcome));
  if (outcome.status != 0) {
    const std::string not_started = context_.texts.GetProgramText(text::kNotStarted);
    const std::string operation = OperationName(main_.CurrentOperation);
    OpenReport({operation, {not_started + " " + reason}});
    CloseReport();
    ReportWindow().ShowEnd(operation, not_started + " " + reason, report::EndKind::kBad);
  }
  context_.print(ResultLine(outcome, seconds));
  // A program that was ended during the run did not know its exit code then.
  if (context_.front_end.quitting()) context_.front_end.Quit(exit_code_);
}

void OperationController::EndWithProgram() {
  stop_requested_ = true;
  if (report_) report_->Hide();
}

void OperationController::RefuseUnattended(std::int16_t status, const std::string& reason) {
  engine::RunOutcome outcome;
  outcome.status = status;
  ReportUnattended(outcome, reason, 0);
}

report::Expected OperationController::ExpectedBy(const PreviewFindings& findings, bool compares) {
  const std::int64_t files = findings.files_due + (compares ? findings.files_same : 0);
  const std::int64_t bytes = findings.bytes_due + (compares ? findings.bytes_same : 0);
  return findings.complete ? report::Expected{files, bytes} : report::Expected{};
}

bool OperationController::Confirm(engine::RunRequest& request) {
  if (main_.SkipConfirmation) return true;
  frmConfirmOperation window(context_, request, warnings_, paces_);
  const bool confirmed = window.Confirm(main_);
  main_.CompareContents = window.ComparesContents();
  main_.ReadBack = window.ReadsBack();
  request.compare_contents = main_.CompareContents;
  request.read_back = main_.ReadBack;
  compares_contents_ = ComparesContents(request);
  reads_back_ = ReadsBack(request);
  if (confirmed) expected_ = ExpectedBy(window.findings(), compares_contents_);
  main_.SkipConfirmation = confirmed && window.NotAgain();
  return confirmed;
}

void OperationController::OpenReport(const engine::ReportHeading& heading) {
  const Setup setup = main_.CurrentSetup();
  report::RunFacts facts;
  facts.operation = main_.CurrentOperation;
  facts.expected = std::exchange(expected_, {});
  facts.compares_contents = compares_contents_;
  facts.reads_back = reads_back_;
  facts.suppress_detailed_report = setup.SuppressDetailedReports;
  facts.unattended = Unattended();
  facts.source_folder = setup.SourceFolder;
  facts.modified_since = DatePr2::ModifiedSinceText(std::max(setup.ModifiedSince, 0), context_.texts);
  if (!IsListOperation(facts.operation)) {
    facts.target_folder = setup.TargetFolder;
    target_ = setup.TargetFolder;
    facts.target_drive = context_.files.DriveOf(setup.TargetFolder);
    facts.free_space_text = [this, target = setup.TargetFolder] {
      return DiskProc::FreeSpaceText(context_.files, target, context_.marks);
    };
  }
  ReportWindow().SetLineSink(facts.unattended ? context_.print : report::LineSink());
  run_report_ = std::make_unique<report::RunReport>(ReportWindow(), *this, context_.clock, context_.marks,
                                                    std::move(facts));
  std::vector<std::string> lines = heading.lines;
  const auto warnings_at = IsListOperation(main_.CurrentOperation) ? lines.begin() + 1 : lines.begin();
  lines.insert(warnings_at, warnings_.begin(), warnings_.end());
  if (Unattended()) lines.insert(lines.begin(), unattended_heading_);
  run_report_->Begin(heading.caption, lines);
}

void OperationController::CloseReport() {
  ReportWindow().SetReportButtons(context_.texts.GetProgramText(text::kClose));
  ReportWindow().SetLineSink({});
}

ui::Form& OperationController::Window() { return main_; }

bool OperationController::PauseAfterFirstCopy() const { return main_.chkPauseAfterFirstCopy.value() == 1; }

bool OperationController::Unattended() const { return main_.RunningFromCommandLine; }

bool OperationController::StopRequested() const { return stop_requested_ || context_.front_end.quitting(); }

void OperationController::EnableOperationControls() { main_.UnlockControls(); }

void OperationController::ShowLatest() {
  if (run_report_) run_report_->ShowHeld();
}

}  // namespace app
