#include "engine/copy/copy_display.h"

#include <algorithm>

namespace engine {
namespace {

/// After so many waits for the disk alone it is worth saying.
constexpr int kWaitsToTell = 6;

}  // namespace

/// The first file that has been gone through so many times and not once more: written the first time, read
/// back the second.
const PendingCopy* CopyDisplay::FirstBetween(std::int64_t times, std::int64_t more) const {
  const auto found = std::ranges::find_if(pending_, [=](const PendingCopy& pending) {
    const std::int64_t size = pending.job.file->size;
    return !pending.outcome && *pending.done >= times * size && *pending.done < more * size;
  });
  return found == pending_.end() ? nullptr : &*found;
}

void CopyDisplay::ShowFile(platform::CopyStage stage) {
  if (stage == platform::CopyStage::kReadingBack) {
    if (const PendingCopy* const unread = FirstBetween(1, 2)) listener_.ReadingBack(unread->job.SourcePath());
  } else if (stage != platform::CopyStage::kSaving) {
    if (const PendingCopy* const unwritten = FirstBetween(0, 1))
      listener_.CopyBegun(unwritten->job.SourcePath());
  }
}

void CopyDisplay::Show(platform::CopyStage stage) {
  ShowFile(stage);
  saving_waits_ = stage == platform::CopyStage::kSaving ? saving_waits_ + 1 : 0;
  if (is_saving_ == (saving_waits_ >= kWaitsToTell)) return;
  is_saving_ = !is_saving_;
  listener_.Saving(is_saving_);
}

double CopyDisplay::Reached(double walked) const {
  if (pending_.empty()) return walked;
  const PendingCopy* const first = FirstBetween(0, times());
  if (first == nullptr) return pending_.back().job.share_begin + pending_.back().job.share;
  const CopyJob& job = first->job;
  const auto all = static_cast<double>(std::max<std::int64_t>(times() * job.file->size, 1));
  return job.share_begin + job.share * static_cast<double>(*first->done) / all;
}

std::int64_t CopyDisplay::BytesDone() const {
  std::int64_t bytes = settled_bytes_;
  for (const PendingCopy& pending : pending_) bytes += *pending.done / times();
  return bytes;
}

}  // namespace engine
