#include "engine/copy_pass.h"

#include <algorithm>
#include <utility>

#include "base/utf8.h"
#include "engine/failure_text.h"
#include "engine/file_proc.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

/// Of the target's free space: how much beyond the files on their way is plenty, and for how long an answer
/// then holds.
constexpr double kPlenty = 256.0 * 1024 * 1024;
constexpr std::chrono::milliseconds kSpaceHolds{100};

using platform::Entry;
using platform::EntryKind;

constexpr std::chrono::milliseconds kOneWait{50};
/// After so many waits for the disk alone it is worth saying.
constexpr int kWaitsToTell = 6;

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

}  // namespace

std::string CopyJob::SourcePath() const { return platform::JoinPath(folders->source().path(), file->name); }

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
      setting_(std::move(setting)) {}

void CopyPass::Copy(CopyJob job) {
  if (unfinished_.IsDueToMove()) {
    Finish();
    unfinished_.MoveOn();
  }
  if (!CheckSize(job) || !CheckSpace(job) || !EnsureTargetFolder(job) || !MakeReplaceable(job)) return;
  listener_.CopyBegun(job.SourcePath());
  if (listener_.StopRequested()) return;
  Begin(std::move(job));
  if (is_scarce_) return Finish();
  while (IsBusy() && Wait()) {
  }
}

/// On a disk elsewhere in the network the question takes longer than a small file. With plenty of room the
/// answer holds for a moment; a disk that other programs fill meanwhile fails the copy instead.
std::optional<double> CopyPass::FreeBytes() {
  const std::chrono::milliseconds now = tools_.clock.Monotonic();
  if (free_bytes_ && !is_scarce_ && now - free_bytes_asked_ < kSpaceHolds) return free_bytes_;
  double free_bytes = 0;
  double total_bytes = 0;
  free_bytes_.reset();
  free_bytes_asked_ = now;
  if (tools_.GetDiskSpace(target_root_.path(), free_bytes, total_bytes) == 0)
    free_bytes_ = free_bytes - bytes_on_their_way_;
  return free_bytes_;
}

/// Where the space may not suffice for all that is on its way, the files before this one come first.
std::optional<double> CopyPass::FreeBytesFor(double wanted) {
  std::optional<double> free_bytes = FreeBytes();
  is_scarce_ = free_bytes && *free_bytes - wanted <= kPlenty;
  if (!is_scarce_ || pending_.empty()) return free_bytes;
  Finish();
  return FreeBytes();
}

/// Not to write up to the limit of the volume's format in vain.
bool CopyPass::CheckSize(const CopyJob& job) {
  if (!largest_file_) largest_file_ = tools_.files.LargestFile(target_root_.path());
  if (*largest_file_ == 0 || job.file->size <= *largest_file_) return true;
  Fail(job, FailureLine(tools_, text::kNotCopied, job.SourcePath(), {platform::ErrorKind::kTooLarge, 0, {}}) +
                " (" + text::GroupedNumber(job.file->size, tools_.marks) + " > " +
                text::GroupedNumber(*largest_file_, tools_.marks) + " bytes)");
  return false;
}

bool CopyPass::CheckSpace(const CopyJob& job) {
  const std::int32_t source_size = FileSizeOf(*job.file);
  const std::optional<double> free_bytes = FreeBytesFor(source_size);
  if (is_scarce_ && !pending_.empty()) return false;  // the user stops
  if (!free_bytes) return true;
  if (*free_bytes <= 0) {
    Fail(job, NoticeLine(tools_, text::kNotCopied, job.SourcePath()));
    listener_.WriteLine(std::string(kLineIndent) + kDriveFullLine);
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
    listener_.WriteLine(FailureLine(tools_, text::kNotMarked, unfinished_.path(), marked.error()));
  }
  order_.Hold();
  pending_.push_back({std::move(job), std::make_shared<Bytes>(0), std::nullopt, is_scarce_});
  Start(pending_.back());
}

void CopyPass::Start(Pending& pending) {
  const CopyJob& job = pending.job;
  const auto name =
      job.selection.target != nullptr ? platform::TargetName::kTaken : platform::TargetName::kFree;
  const double size = std::max(0.0, static_cast<double>(job.file->size));
  ++on_their_way_;
  bytes_on_their_way_ += size;
  if (free_bytes_) *free_bytes_ -= size;
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
  ShowStage(platform::CopyStage::kIdle);
}

bool CopyPass::Wait() {
  if (listener_.StopRequested()) return false;
  const platform::CopyStage stage = copier_->Wait(kOneWait);
  Settle();
  ShowStage(stage);
  pulse_.Beat(Reached(0));
  return !listener_.StopRequested();
}

void CopyPass::Beat(double fraction) {
  if (!pulse_.IsDue()) return;
  Settle();
  pulse_.Beat(Reached(fraction));
}

void CopyPass::GiveUp() {
  copier_.reset();
  pending_.clear();
  order_.GiveUp();
}

void CopyPass::Settle() {
  while (copier_) {
    if (!pending_.empty() && pending_.front().outcome) {
      Pending& first = pending_.front();
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
                                  [](const Pending& pending) { return !pending.outcome; });
    its->outcome = std::move(outcome);
    --on_their_way_;
    bytes_on_their_way_ -= std::max(0.0, static_cast<double>(its->job.file->size));
  }
}

/// Space may have been short only because of the others.
bool CopyPass::NeedsSecondTry(const Pending& pending) const {
  if (pending.outcome->ok() || pending.had_second_try) return false;
  const platform::ErrorKind kind = pending.outcome->error().kind;
  return kind == platform::ErrorKind::kShort ||
         (kind == platform::ErrorKind::kDiskFull && !pending.was_alone);
}

void CopyPass::TrySecondTime(Pending& pending) {
  pending.had_second_try = true;
  pending.outcome.reset();
  Start(pending);
  copier_->Save();
}

void CopyPass::SettleFirst() {
  const Pending first = std::move(pending_.front());
  pending_.pop_front();
  order_.Settle([&] {
    const CopyJob& job = first.job;
    if (setting_.reads_back) CountReadBack(first);
    if (first.outcome->ok()) return ReportCopied(job, first.outcome->value());
    free_bytes_.reset();
    ++job.counts->counts.failed;
    Count(job.selection, *job.file, *job.counts);
    listener_.WriteLine(WhyNotCopied(job, first.outcome->error()));
  });
}

void CopyPass::CountReadBack(const Pending& pending) {
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
    listener_.WriteLine(NoticeLine(tools_, text::kChangedMeanwhile, job.SourcePath()));
  }
  ++totals_.counts.copied;
  totals_.bytes_copied += FileSizeOf(outcome.bytes);
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

/// The first file of which so much is not done: once its size is still being written, twice its size not read
/// back.
const CopyPass::Pending* CopyPass::FirstWithLessThan(std::int64_t times_its_size) const {
  const auto found = std::find_if(pending_.begin(), pending_.end(), [=](const Pending& pending) {
    return !pending.outcome && *pending.done < times_its_size * pending.job.file->size;
  });
  return found == pending_.end() ? nullptr : &*found;
}

void CopyPass::ShowFile(platform::CopyStage stage) {
  if (const Pending* const unwritten = FirstWithLessThan(1)) {
    listener_.CopyBegun(unwritten->job.SourcePath());
  } else if (const Pending* const unread = FirstWithLessThan(2)) {
    if (stage == platform::CopyStage::kReadingBack) listener_.ReadingBack(unread->job.SourcePath());
  }
}

void CopyPass::ShowStage(platform::CopyStage stage) {
  ShowFile(stage);
  saving_waits_ = stage == platform::CopyStage::kSaving ? saving_waits_ + 1 : 0;
  if (is_saving_ == (saving_waits_ >= kWaitsToTell)) return;
  is_saving_ = !is_saving_;
  listener_.Saving(is_saving_);
}

/// How much of the run is done when so much of it is walked.
double CopyPass::Reached(double walked) const {
  if (pending_.empty()) return walked;
  const std::int64_t times = setting_.reads_back ? 2 : 1;
  const Pending* const first = FirstWithLessThan(times);
  if (first == nullptr) return pending_.back().job.share_begin + pending_.back().job.share;
  const CopyJob& job = first->job;
  const auto all = static_cast<double>(std::max<std::int64_t>(times * job.file->size, 1));
  return job.share_begin + job.share * static_cast<double>(*first->done) / all;
}

void CopyPass::Fail(const CopyJob& job, const std::string& line) {
  order_.Tell(
      [this, counts = job.counts, selection = job.selection, file = job.file, folders = job.folders, line] {
        ++counts->counts.failed;
        Count(selection, *file, *counts);
        listener_.WriteLine(line);
      });
}

}  // namespace engine
