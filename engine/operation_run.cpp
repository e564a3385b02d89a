#include "engine/operation_run.h"

#include <utility>

#include "base/utf8.h"
#include "engine/failure_text.h"
#include "engine/folder_walk.h"
#include "engine/run_lock.h"
#include "engine/validation.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

ReportHeading HeadingOf(const Tools& tools, const RunRequest& request) {
  const app::Setup& setup = request.setup;
  ReportHeading heading;
  heading.caption = app::OperationName(request.operation);
  if (IsListOperation(request.operation)) {
    heading.caption = "Counting files and folders";
    heading.lines.push_back("Now counting files and folders ...");
  }
  std::string title = app::OperationName(request.operation) + " (" + setup.SourceFolder + ")";
  if (!setup.FileExtension.empty()) title += " with file extension '" + setup.FileExtension + "'";
  heading.lines.push_back(std::move(title));
  heading.lines.push_back("{" + tools.texts.GetProgramText(text::kSourceFolder) +
                          "} = " + setup.SourceFolder);
  if (ComparesContents(request)) heading.lines.push_back(tools.texts.GetProgramText(text::kComparesContents));
  heading.lines.emplace_back();
  return heading;
}

WalkPlan PlanOf(const RunRequest& request) {
  const app::Setup& setup = request.setup;
  WalkPlan plan;
  plan.source = platform::WithoutTrailingSeparators(setup.SourceFolder);
  if (!IsListOperation(request.operation))
    plan.target = platform::WithoutTrailingSeparators(setup.TargetFolder);
  plan.included_folders = setup.IncludedFolders;
  plan.include_subfolders = setup.IncludeSubfolders;
  plan.exclude_files_in_source_folder = setup.ExcludeFilesInSourceFolder;
  plan.compare_contents = ComparesContents(request);
  plan.rules = RulesOf(request);
  return plan;
}

std::optional<Refusal> Validate(RunHost& host, const Tools& tools, const RunRequest& request) {
  if (auto refusal = CheckSource(tools, request.setup, host)) return refusal;
  if (IsListOperation(request.operation)) return std::nullopt;
  return CheckTarget(tools, request.setup);
}

Refusal TargetInUse(const Tools& tools, const RunLock& run) {
  const auto part = [&](int number) { return tools.texts.GetProgramText(number); };
  const std::string holder = run.holder.empty() ? part(text::kUnknownHolder) : run.holder;
  const std::string what = run.above.empty()
                               ? part(text::kTargetInUse)
                               : part(text::kFolderAboveInUse) + " " + base::utf8::Printable(run.above) + ",";
  return {kTargetInUse, what + " " + holder + ". " + part(text::kTargetInUseAdvice),
          part(text::kTitleTargetInUse)};
}

RunOutcome Refused(RunHost& host, const Refusal& refusal, std::string* statusText) {
  if (statusText != nullptr) {
    *statusText = refusal.unattended.empty() ? refusal.text : refusal.unattended;
  } else {
    host.Refuse(refusal.text, refusal.title);
  }
  RunOutcome outcome;
  outcome.status = refusal.status;
  return outcome;
}

/// Brings what was copied safely to the disk. The user may cancel: the names of the last copies are then
/// left to the system.
platform::Status FlushTarget(const Tools& tools, const std::string& target, Listener& listener) {
  listener.Saving(true);
  platform::Status flushed = tools.files.Flush(target, [&listener] {
    listener.Breathe();
    return !listener.StopRequested();
  });
  listener.Saving(false);
  return flushed;
}

/// The last act of a copying run.
void EndCopying(const Tools& tools, const WalkPlan& plan, FolderWalk& walk, Listener& listener,
                RunOutcome& outcome) {
  if (outcome.totals.counts.copied > 0 && !outcome.cancelled) {
    const platform::Status flushed = FlushTarget(tools, plan.target, listener);
    outcome.cancelled = !flushed && listener.StopRequested();
    if (!flushed && !outcome.cancelled) {
      outcome.terminated = true;
      listener.WriteLine(FailureLine(tools, text::kNotFlushed, plan.target, flushed.error()));
      return;
    }
  }
  walk.EndUnfinished();
}

RunOutcome WalkAndReport(RunHost& host, const Tools& tools, const RunRequest& request) {
  Listener& listener = host.OpenReport(request.operation, HeadingOf(tools, request));
  host.RefreshFreeSpace();
  host.LockControls();

  const WalkPlan plan = PlanOf(request);
  FolderWalk walk(tools, listener, plan);
  RunOutcome outcome;
  outcome.compared_contents = plan.compare_contents;
  outcome.totals = walk.Run();
  outcome.cancelled = walk.cancelled();
  outcome.terminated = walk.OperationTerminated();
  if (IsCopyOperation(request.operation)) EndCopying(tools, plan, walk, listener, outcome);
  if (walk.OperationTerminated()) listener.WriteLine(tools.texts.GetProgramText(text::kEndedEarly));
  if (outcome.cancelled) listener.WriteLine(tools.texts.GetProgramText(text::kCancelledByUser));
  host.WriteSummary(outcome.totals);

  host.CloseReport(tools.texts.GetProgramText(text::kClose));
  host.UnlockControls();
  host.RefreshFolderDisplays();
  return outcome;
}

}  // namespace

SelectionRules RulesOf(const RunRequest& request) {
  const app::Setup& setup = request.setup;
  return {request.operation,
          {setup.FileExtension, SkipPatterns(setup.SkipFilepaths), request.modified_since},
          request.skip_picture_caches};
}

bool ComparesContents(const RunRequest& request) {
  return request.compare_contents && (request.operation == app::Operation::kCheckBackupState ||
                                      request.operation == app::Operation::kBackupModifiedFiles);
}

RunOutcome RunOperation(RunHost& host, const Tools& tools, const RunRequest& request,
                        std::string* statusText) {
  host.PrepareFor(request.operation);
  if (const auto refusal = Validate(host, tools, request)) return Refused(host, *refusal, statusText);
  RunRequest confirmed = request;
  if (IsCopyOperation(request.operation) && statusText == nullptr && !host.ConfirmOperation(confirmed)) {
    RunOutcome outcome;
    outcome.status = kNotConfirmed;
    return outcome;
  }
  RunLock run;
  if (IsCopyOperation(request.operation)) run = LockTarget(tools, request.setup.TargetFolder);
  if (run.is_taken) return Refused(host, TargetInUse(tools, run), statusText);
  return WalkAndReport(host, tools, confirmed);
}

}  // namespace engine
