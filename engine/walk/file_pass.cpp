#include "engine/walk/file_pass.h"

#include <algorithm>
#include <utility>

#include "engine/failure_text.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

constexpr std::chrono::milliseconds kOneWaitToCompare{50};

}  // namespace

FilePass::FilePass(const Tools& tools, Listener& listener, Pulse& pulse, ReportOrder& order,
                   CopyPass& copy_pass, ContentComparison& comparison, TargetRoot& target_root,
                   Setting setting)
    : tools_(tools),
      listener_(listener),
      pulse_(pulse),
      order_(order),
      copy_pass_(copy_pass),
      comparison_(comparison),
      target_root_(target_root),
      setting_(std::move(setting)) {}

void FilePass::Take(CopyJob job) {
  if (IsToBeCompared(job)) return Compare(std::move(job));
  if (!decisions_.is_holding()) return Act(std::move(job));
  InTurn([this, job = std::move(job)] {
    if (!setting_.has_ended()) Act(job);
  });
}

bool FilePass::IsToBeCompared(const CopyJob& job) const {
  return job.selection.finding == Finding::kUpToDate &&
         (setting_.compares_contents || job.selection.needs_comparing);
}

void FilePass::Compare(CopyJob job) {
  decisions_.Hold();
  comparison_.Start(std::move(job));
  while (!comparison_.HasRoom() && Wait()) {
  }
}

bool FilePass::Wait() {
  if (setting_.has_ended()) return false;
  if (pulse_.IsDue()) listener_.Comparing(comparison_.FileAtHand());
  comparison_.Wait(kOneWaitToCompare);
  Settle();
  ShowReached(0);
  return !setting_.has_ended();
}

void FilePass::Settle() {
  while (auto compared = comparison_.Collect()) {
    decisions_.Settle([&] {
      if (!setting_.has_ended()) Conclude(std::move(compared->job), compared->outcome);
    });
  }
}

void FilePass::Finish() {
  while (!comparison_.is_idle() && Wait()) {
  }
  pulse_.Compared(comparison_.BytesRead());
}

void FilePass::Beat(double fraction) {
  if (!pulse_.IsDue()) return;
  Settle();
  ShowReached(fraction);
}

void FilePass::ShowReached(double walked) {
  pulse_.Compared(comparison_.BytesRead());
  copy_pass_.Beat(comparison_.Reached(walked));
}

void FilePass::GiveUp() {
  comparison_.GiveUp();
  decisions_.GiveUp();
}

void FilePass::Conclude(CopyJob job, const platform::CompareOutcome& outcome) {
  using platform::Comparison;
  const std::string path = job.SourcePath();
  switch (outcome.finding) {
    case Comparison::kSourceUnread:
      return Fail(job, FailureLine(tools_, text::kNotCompared, path, outcome.why));
    case Comparison::kCopyUnread:
      return Fail(job, FailureLine(tools_, text::kCopyNotRead,
                                   platform::JoinPath(job.folders->target_path(), job.selection.target->name),
                                   outcome.why) +
                           " " + tools_.texts.GetProgramText(text::kCopyNotReadAdvice));
    case Comparison::kChanged:
      Write(NoticeLine(tools_, text::kChangedBeforeComparing, path));
      BecomeModified(job);
      break;
    case Comparison::kDifferent:
      ++job.counts->counts.differed;
      Write(NoticeLine(tools_, text::kOtherContent, path));
      BecomeModified(job);
      break;
    case Comparison::kEqual:
      break;
  }
  CountCompared(job);
  Act(std::move(job));
}

void FilePass::CountCompared(const CopyJob& job) {
  const std::int64_t size = std::max<std::int64_t>(job.file->size, 0);
  ++job.counts->counts.compared;
  job.counts->bytes_compared += size;
  ++files_compared_;
  bytes_compared_ += size;
  if (pulse_.IsDue()) listener_.Compared(bytes_compared_, files_compared_);
}

/// By the rules of the selection, some of which leave out files that are due.
void FilePass::BecomeModified(CopyJob& job) const {
  const std::string& folder = job.folders->source().path();
  job.selection = SelectFile(setting_.rules, {folder, *job.file, job.selection.target, true});
  if (job.selection.selected) ++job.counts->files_to_copy;
}

void FilePass::Fail(const CopyJob& job, const std::string& line) {
  ++job.counts->counts.failed;
  Count(job.selection, *job.file, *job.counts);
  Write(line);
}

void FilePass::Act(CopyJob job) {
  const Selection selection = job.selection;
  if (selection.selected) return copy_pass_.Copy(std::move(job));
  FileCounts& counts = job.counts->counts;
  if (selection.skip_text != 0) {
    ++counts.filtered_out;
    Write(NoticeLine(tools_, selection.skip_text, job.file->name) + ".");
  } else if (selection.finding == Finding::kFilteredOut) {
    ++counts.filtered_out;
  } else if (selection.finding == Finding::kUpToDate) {
    ++counts.up_to_date;
    if (IsCopyOperation(setting_.rules.operation))
      target_root_.TakeSpelling(job.folders->target_path(), *selection.target, job.file->name);
  } else {
    ++counts.due;
  }
  Count(selection, *job.file, *job.counts);
}

void FilePass::Write(const std::string& line) {
  order_.Tell([this, line] { pulse_.WriteLine(line); });
}

}  // namespace engine
