#include "engine/copy/copy_pass.h"

#include <algorithm>
#include <utility>

#include "base/utf8.h"
#include "engine/failure_text.h"
#include "engine/selection/file_proc.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

using platform::Entry;
using platform::EntryKind;

constexpr std::chrono::milliseconds kOneWait{50};

constexpr const char* kDriveFullLine = "The target drive is full.";
constexpr const char* kDriveFullMessage =
    "The target drive is full, so this backup operation\r\n"
    "must be terminated.";
constexpr const char* kNoSpaceForFile = "Insufficient space on the target drive for this file.";

Question FolderQuestion(const Tools& tools, const std::string& folder) {
  const auto part = [&](int number) { return tools.texts.GetProgramText(number); };
  std::string statement = part(text::kTheTargetFolder) + " " + part(text::kCouldNotBeCreated);
  const std::string drive = tools.files.DriveOf(folder);
  if (!drive.empty()) statement += " " + part(text::kOnDrive) + " " + drive + " " + part(text::kUnderPath);
  statement += "\r\n" + base::utf8::Printable(folder);
  return {std::move(statement), part(text::kGoOn) + " " + part(text::kWithNextFileOfFolder)};
}

Question ReadOnlyQuestion(const Tools& tools, const std::string& path) {
  const auto part = [&](int number) { return tools.texts.GetProgramText(number); };
  return {
      part(text::kTheTargetFile) + "\r\n" + base::utf8::Printable(path) + "\r\n" + part(text::kStaysReadOnly),
      part(text::kGoOn) + " " + part(text::kWithNextFile)};
}

double SizeOf(const CopyJob& job) { return std::max(0.0, static_cast<double>(job.file->size)); }

}  // namespace

void Count(const Selection& selection, const platform::Entry& file, FolderCounts& counts) {
  ++counts.counts.met;
  if (selection.finding == Finding::kNew) ++counts.counts.new_files;
  if (selection.finding == Finding::kModified) ++counts.counts.modified_files;
  if (selection.finding != Finding::kFilteredOut) counts.bytes_met += std::max<std::int64_t>(file.size, 0);
}

CopyPass::CopyPass(const Tools& tools, Listener& listener, Pulse& pulse, Totals& totals, ReportOrder& order,
                   UnfinishedRun& unfinished, TargetRoot& target_root, Setting setting)
    : tools_(tools),
      listener_(listener),
      pulse_(pulse),
      totals_(totals),
      order_(order),
      unfinished_(unfinished),
      target_root_(target_root),
      setting_(std::move(setting)),
      space_(tools, target_root),
      display_(listener, pending_, setting_.reads_back) {}

void CopyPass::Copy(CopyJob job) {
  if (unfinished_.IsDueToMove()) {
    Finish();
    if (pending_.empty()) unfinished_.MoveOn();
  }
  if (!CheckSize(job) || !CheckSpace(job) || !EnsureTargetFolder(job) || !MakeReplaceable(job)) return;
  listener_.CopyBegun(job.SourcePath());
  if (listener_.StopRequested()) return;
  Begin(std::move(job));
  if (space_.is_scarce()) return Finish();
  while (IsBusy() && Wait()) {
  }
}

/// Not to write up to the limit of the volume's format in vain.
bool CopyPass::CheckSize(const CopyJob& job) {
  const std::int64_t largest = space_.LargestFile();
  if (largest == 0 || job.file->size <= largest) return true;
  Fail(job, FailureLine(tools_, text::kNotCopied, job.SourcePath(), {platform::ErrorKind::kTooLarge, 0, {}}) +
                " (" + text::GroupedNumber(job.file->size, tools_.marks) + " > " +
                text::GroupedNumber(largest, tools_.marks) + " bytes)");
  return false;
}

/// Where the space may not suffice for all that is on its way, the files before this one come first.
bool CopyPass::CheckSpace(const CopyJob& job) {
  const std::int32_t source_size = FileSizeOf(*job.file);
  std::optional<double> free_bytes = space_.FreeFor(SizeOf(job));
  if (space_.is_scarce() && !pending_.empty()) {
    Finish();
    if (!pending_.empty()) return false;  // the user stops
    free_bytes = space_.FreeFor(SizeOf(job));
  }
  if (!free_bytes) return true;
  if (*free_bytes <= 0) {
    Fail(job, NoticeLine(tools_, text::kNotCopied, job.SourcePath()));
    pulse_.WriteLine(std::string(kLineIndent) + kDriveFullLine);
    listener_.Tell(kDriveFullMessage);
    Terminate();
    return false;
  }
  if (static_cast<double>(source_size) < *free_bytes) return true;
  Fail(job, NoticeLine(tools_, text::kNotCopied, job.SourcePath()) + ". " + kNoSpaceForFile + " (" +
                text::GroupedNumber(std::max<std::int64_t>(source_size, job.file->size), tools_.marks) +
                " bytes).");
  return false;
}

bool CopyPass::EnsureTargetFolder(const CopyJob& job) {
  const std::string& target = job.folders->target_path();
  const auto fail = [&](const platform::Error& error) {
    Fail(job, TargetFailureLine(tools_, text::kNotCopied, job.SourcePath(), error));
    return false;
  };
  if (!folder_given_up_.empty() && platform::IsInside(target, folder_given_up_)) return fail(why_given_up_);
  const platform::Status ready = job.folders->EnsureTarget(target_root_);
  if (ready) return true;
  if (job.folders->place().refused()) return fail(ready.error());
  folder_given_up_ = target;
  why_given_up_ = ready.error();
  Finish();
  if (!pending_.empty()) return false;  // the user stops
  fail(ready.error());
  if (!listener_.AskWhetherToGoOn(FolderQuestion(tools_, folder_given_up_))) Terminate();
  return false;
}

bool CopyPass::MakeReplaceable(const CopyJob& job) {
  const platform::Entry* const old = job.selection.target;
  if (old == nullptr || old->kind != platform::EntryKind::kFile || !IsReadOnly(old->attributes)) return true;
  // The copy takes the place of a name; what that leads to stays as it is.
  if (!tools_.files.ReadOnlyForbidsReplacing() || job.folders->IsNoCopy(*job.file, *old)) return true;
  const std::string path = platform::JoinPath(job.folders->target_path(), old->name);
  if (ClearReadOnly(tools_.files, path)) return true;
  Finish();
  if (!pending_.empty()) return false;  // the user stops
  Fail(job,
       FailureLine(tools_, text::kNotCopied, job.SourcePath(), {platform::ErrorKind::kAccessDenied, 0, {}}));
  if (!listener_.AskWhetherToGoOn(ReadOnlyQuestion(tools_, path))) Terminate();
  return false;
}

void CopyPass::Begin(CopyJob job) {
  if (!copier_) copier_ = tools_.files.MakeCopier(setting_.source_root, target_root_.path());
  if (const platform::Status marked = unfinished_.Begin(); !marked) {
    ++totals_.warnings;
    pulse_.WriteLine(FailureLine(tools_, text::kNotMarked, unfinished_.path(), marked.error()));
  }
  order_.Hold();
  pending_.push_back(
      {std::move(job), std::make_shared<PendingCopy::Bytes>(0), std::nullopt, space_.is_scarce()});
  Start(pending_.back());
}

void CopyPass::Start(PendingCopy& pending) {
  const CopyJob& job = pending.job;
  const auto name =
      job.selection.target != nullptr ? platform::TargetName::kTaken : platform::TargetName::kFree;
  ++on_their_way_;
  space_.Begin(SizeOf(job));
  copier_->Start({job.folders->shared_source(), job.file, job.folders->shared_target(), name,
                  [done = pending.done, hold = pulse_.hold()](std::int64_t bytes) {
                    hold->Wait();
                    *done = bytes;
                    return true;
                  },
                  setting_.reads_back});
}

bool CopyPass::IsBusy() {
  Settle();
  return !copier_->HasRoom() || (!pending_.empty() && pending_.front().outcome);
}

void CopyPass::Finish() {
  if (!copier_ || listener_.StopRequested()) return;
  copier_->Save();
  while (!pending_.empty() && Wait()) {
  }
  pulse_.Copied(display_.BytesDone());
  display_.Show(platform::CopyStage::kIdle);
}

bool CopyPass::Wait() {
  if (listener_.StopRequested()) return false;
  const platform::CopyStage stage = copier_->Wait(kOneWait);
  Settle();
  display_.Show(stage);
  ShowReached(0);
  return !listener_.StopRequested();
}

void CopyPass::Beat(double fraction) {
  if (!pulse_.IsDue()) return;
  Settle();
  ShowReached(fraction);
}

void CopyPass::ShowReached(double walked) {
  pulse_.Copied(display_.BytesDone());
  pulse_.Beat(display_.Reached(walked));
}

void CopyPass::GiveUp() {
  if (copier_) copier_->GiveUp();
  for (PendingCopy& pending : pending_) {
    if (!pending.outcome && copier_) pending.outcome = copier_->Collect();
  }
  const auto is_made = [](const PendingCopy& pending) { return pending.outcome && pending.outcome->ok(); };
  while (std::ranges::any_of(pending_, is_made)) SettleFirst();
  copier_.reset();
  order_.GiveUp();
}

void CopyPass::Settle() {
  while (copier_) {
    if (!pending_.empty() && pending_.front().outcome) {
      PendingCopy& first = pending_.front();
      if (!NeedsSecondTry(first)) {
        SettleFirst();
        continue;
      }
      if (on_their_way_ == 0) {
        TrySecondTime(first);
        continue;
      }
    }
    auto outcome = copier_->Collect();
    if (!outcome) return;
    const auto its = std::find_if(pending_.begin(), pending_.end(),
                                  [](const PendingCopy& pending) { return !pending.outcome; });
    its->outcome = std::move(outcome);
    --on_their_way_;
    space_.End(SizeOf(its->job));
  }
}

/// Space may have been short only because of the others.
bool CopyPass::NeedsSecondTry(const PendingCopy& pending) const {
  if (pending.outcome->ok() || pending.had_second_try) return false;
  const platform::ErrorKind kind = pending.outcome->error().kind;
  return kind == platform::ErrorKind::kShort ||
         (kind == platform::ErrorKind::kDiskFull && !pending.was_alone);
}

void CopyPass::TrySecondTime(PendingCopy& pending) {
  pending.had_second_try = true;
  pending.outcome.reset();
  Start(pending);
  copier_->Save();
}

void CopyPass::SettleFirst() {
  const PendingCopy first = std::move(pending_.front());
  pending_.pop_front();
  order_.Settle([&] {
    const CopyJob& job = first.job;
    if (!first.outcome->ok() && first.outcome->error().kind == platform::ErrorKind::kCancelled) return;
    if (setting_.reads_back) CountReadBack(first);
    if (first.outcome->ok()) return ReportCopied(job, first.outcome->value());
    space_.Forget();
    LeaveAsItIs(job);
    ++job.counts->counts.failed;
    Count(job.selection, *job.file, *job.counts);
    pulse_.WriteLine(WhyNotCopied(job, first.outcome->error()));
  });
}

void CopyPass::CountReadBack(const PendingCopy& pending) {
  const platform::Result<platform::CopyOutcome>& outcome = *pending.outcome;
  const bool is_bad = !outcome && outcome.error().kind == platform::ErrorKind::kNotAsWritten;
  if (!outcome && !is_bad) return;
  ++totals_.counts.read_back;
  totals_.bytes_read_back += outcome ? outcome->bytes : pending.job.file->size;
  if (is_bad) ++totals_.counts.not_as_written;
}

/// What failed names no side: the one that looks now as the error says is the one.
std::string CopyPass::WhyNotCopied(const CopyJob& job, platform::Error error) {
  using platform::ErrorKind;
  const bool may_be_either = error.kind == ErrorKind::kIsAFolder || error.kind == ErrorKind::kNotFound;
  const auto source = may_be_either ? tools_.files.Stat(job.SourcePath()) : platform::Result<Entry>(error);
  if (source && source->kind == EntryKind::kFolder && error.kind == ErrorKind::kIsAFolder) {
    return NoticeLine(tools_, text::kNotCopied, job.SourcePath()) + ". " +
           tools_.texts.GetProgramText(text::kReasonBecameFolder);
  }
  if (source && source->kind == EntryKind::kFile && error.kind == ErrorKind::kNotFound) {
    if (!target_root_.IsThere() || !tools_.files.Stat(job.folders->target_path()))
      return TargetFailureLine(tools_, text::kNotCopied, job.SourcePath(), error);
    error.kind = ErrorKind::kBadName;  // some servers say so of a name that they do not allow
  }
  return FailureLine(tools_, text::kNotCopied, job.SourcePath(), error);
}

void CopyPass::ReportCopied(const CopyJob& job, const platform::CopyOutcome& outcome) {
  CarryAttributes(job, outcome);
  if (job.selection.target != nullptr)
    target_root_.TakeSpelling(job.folders->target_path(), *job.selection.target, job.file->name);
  Count(job.selection, *job.file, *job.counts);
  ++job.counts->counts.copied;
  if (outcome.changed) {
    ++totals_.warnings;
    pulse_.WriteLine(NoticeLine(tools_, text::kChangedMeanwhile, job.SourcePath()));
  }
  ++totals_.counts.copied;
  totals_.bytes_copied += FileSizeOf(outcome.bytes);
  display_.Settled(outcome.bytes);
  listener_.CopyEnded(totals_.bytes_copied, totals_.counts.copied);
}

void CopyPass::CarryAttributes(const CopyJob& job, const platform::CopyOutcome& outcome) {
  const bool set = IsSystemFile(outcome.source_attributes) && !IsSystemFile(outcome.target_attributes);
  const bool clear = (outcome.target_attributes & (platform::kReadOnly | platform::kHidden)) != 0;
  if (!set && !clear) return;
  const std::string path = platform::JoinPath(job.folders->target_path(), job.file->name);
  if (set) SetSystemFile(tools_.files, path);
  if (clear) ClearReadOnlyAndHidden(tools_.files, path);
}

void CopyPass::LeaveAsItIs(const CopyJob& job) {
  const Entry* const old = job.selection.target;
  if (old != nullptr) unfinished_.LeaveAsItIs(platform::JoinPath(job.folders->target_path(), old->name));
}

void CopyPass::Fail(const CopyJob& job, const std::string& line) {
  LeaveAsItIs(job);
  order_.Tell(
      [this, counts = job.counts, selection = job.selection, file = job.file, folders = job.folders, line] {
        ++counts->counts.failed;
        Count(selection, *file, *counts);
        pulse_.WriteLine(line);
      });
}

}  // namespace engine
