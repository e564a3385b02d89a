#include "engine/run/operation_run.h"

#include <utility>

#include "base/utf8.h"
#include "engine/failure_text.h"
#include "engine/run/validation.h"
#include "engine/walk/folder_walk.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

WalkPlan PlanOf(const RunRequest& request) {
  using platform::WithoutTrailingSeparators;
  const app::Setup& setup = request.setup;
  return {.source = WithoutTrailingSeparators(setup.SourceFolder),
          .target = IsListOperation(request.operation) ? "" : WithoutTrailingSeparators(setup.TargetFolder),
          .included_folders = setup.IncludedFolders,
          .include_subfolders = setup.IncludeSubfolders,
          .exclude_files_in_source_folder = setup.ExcludeFilesInSourceFolder,
          .compare_contents = ComparesContents(request),
          .read_back = ReadsBack(request),
          .rules = RulesOf(request)};
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

Refusal TargetGone(const Tools& tools) {
  return {kTargetMissing, tools.texts.GetProgramText(text::kReasonTargetGone), kTargetMissingTitle};
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
  if (walk.HasBegunToCopy() && !outcome.cancelled) {
    const platform::Status flushed = FlushTarget(tools, plan.target, listener);
    outcome.cancelled = !flushed && listener.StopRequested();
    if (!flushed && !outcome.cancelled) {
      outcome.terminated = true;
      listener.WriteLine(FailureLine(tools, text::kNotFlushed, plan.target, flushed.error()));
      return;
    }
  }
  walk.EndUnfinished(outcome.cancelled);
}

}  // namespace

std::optional<Refusal> CheckRequest(const Tools& tools, const RunRequest& request,
                                    const std::function<void(const std::string&)>& show_note) {
  if (auto refusal = CheckSource(tools, request.setup, show_note)) return refusal;
  if (IsListOperation(request.operation)) return std::nullopt;
  return CheckTarget(tools, request.setup);
}

OperationRun::OperationRun(const Tools& tools, RunRequest request)
    : tools_(tools), request_(std::move(request)) {
  if (!IsCopyOperation(request_.operation)) return;
  const auto& checked = request_.checked_target;
  if (checked && tools_.files.IdentityOf(request_.setup.TargetFolder) != checked) {
    refusal_ = TargetGone(tools_);
    return;
  }
  lock_ = LockTarget(tools_, request_.setup.TargetFolder);
  if (lock_.is_taken) refusal_ = TargetInUse(tools_, lock_);
}

ReportHeading OperationRun::Heading() const {
  const app::Setup& setup = request_.setup;
  ReportHeading heading;
  heading.caption = app::OperationName(request_.operation);
  if (IsListOperation(request_.operation)) {
    heading.caption = "Counting files and folders";
    heading.lines.push_back("Now counting files and folders ...");
  }
  std::string title = app::OperationName(request_.operation) + " (" + setup.SourceFolder + ")";
  if (!setup.FileExtension.empty()) title += " with file extension '" + setup.FileExtension + "'";
  heading.lines.push_back(std::move(title));
  heading.lines.push_back("{" + tools_.texts.GetProgramText(text::kSourceFolder) +
                          "} = " + setup.SourceFolder);
  if (ComparesContents(request_))
    heading.lines.push_back(tools_.texts.GetProgramText(text::kComparesContents));
  if (ReadsBack(request_)) heading.lines.push_back(tools_.texts.GetProgramText(text::kReadsBack));
  heading.lines.emplace_back();
  return heading;
}

RunOutcome OperationRun::Run(Listener& listener) {
  const WalkPlan plan = PlanOf(request_);
  FolderWalk walk(tools_, listener, plan);
  RunOutcome outcome{
      .totals = walk.Run(), .compared_contents = plan.compare_contents, .read_back = plan.read_back};
  outcome.cancelled = walk.cancelled();
  outcome.terminated = walk.OperationTerminated();
  if (IsCopyOperation(request_.operation)) EndCopying(tools_, plan, walk, listener, outcome);
  if (walk.OperationTerminated()) listener.WriteLine(tools_.texts.GetProgramText(text::kEndedEarly));
  if (outcome.cancelled) listener.WriteLine(tools_.texts.GetProgramText(text::kCancelledByUser));
  return outcome;
}

}  // namespace engine
