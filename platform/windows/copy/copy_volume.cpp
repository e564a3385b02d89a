#include "platform/windows/copy/copy_volume.h"

#include <algorithm>
#include <iterator>
#include <thread>

#include "platform/windows/copy/flushing.h"
#include "platform/windows/long_path.h"

namespace platform::windows {
namespace {

// A round trip takes long and little processor time.
constexpr std::size_t kWorkersOfServer = 8;
constexpr std::size_t kFewestWorkers = 2;
constexpr std::size_t kMostWorkers = 4;

// Three groups are open at a time, and servers allow some 16,000 open files.
constexpr std::size_t kFilesOnServer = 1024;
// Wine keeps open files in 17 lists: 20,000 small ones in groups of 4096 take it 1.2 times as long.
constexpr std::size_t kFilesInOrder = 512;
constexpr std::size_t kFilesWithoutOrder = 128;

constexpr std::size_t kFoldersKept = 64;

CopyLimits LimitsOf(const Volume& source, const Volume& target) {
  CopyLimits limits;
  limits.workers = WorkersBetween(source, target);
  const std::size_t here = target.is_journaled ? kFilesInOrder : kFilesWithoutOrder;
  limits.files = target.is_remote ? kFilesOnServer : here;
  limits.bytes = std::int64_t{256} << 20;
  limits.folders = limits.files;
  return limits;
}

DataFlush DataFlushOf(const Volume& target) {
  if (target.is_remote) return DataFlush::kEachFully;
  return OpenVolume(target.device) ? DataFlush::kVolume : DataFlush::kLastFully;
}

const WindowsDraft& Copy(const Draft* draft) { return static_cast<const WindowsDraft&>(*draft); }

/// Those on the volume of the target folder, or those elsewhere.
Drafts Part(const Drafts& drafts, bool elsewhere) {
  Drafts part;
  std::copy_if(drafts.begin(), drafts.end(), std::back_inserter(part),
               [&](const Draft* draft) { return Copy(draft).is_elsewhere() == elsewhere; });
  return part;
}

/// All are on one volume.
Status FlushLastFully(const Drafts& drafts, bool again) {
  for (const Draft* draft : drafts) {
    const WindowsDraft& copy = Copy(draft);
    const bool is_last = draft == drafts.back();
    if (!is_last && !again && copy.is_written_out()) continue;
    if (Status flushed = is_last ? FlushFully(copy.file()) : WriteOut(copy.file()); !flushed) return flushed;
  }
  return Done{};
}

Status FlushEachFully(const Drafts& drafts) {
  for (const Draft* draft : drafts) {
    if (Status flushed = FlushFully(Copy(draft).file()); !flushed) return flushed;
  }
  return Done{};
}

}  // namespace

std::size_t WorkersBetween(const Volume& source, const Volume& target) {
  if (source.is_remote || target.is_remote) return kWorkersOfServer;
  const std::size_t cores = std::thread::hardware_concurrency();
  return std::clamp(cores, kFewestWorkers, kMostWorkers);
}

WindowsCopyVolume::WindowsCopyVolume(const std::string& source, const std::string& target,
                                     DataFlush data_flush)
    : target_(VolumeOf(LongFolder(target))), data_flush_(data_flush) {
  const Volume from = VolumeOf(LongFolder(source));
  source_has_coarse_times_ = from.is_fat;
  limits_ = LimitsOf(from, target_);
  if (data_flush != DataFlush::kNever) data_flush_ = DataFlushOf(target_);
}

std::unique_ptr<Draft> WindowsCopyVolume::Prepare(const CopyOrder& order) {
  return std::make_unique<WindowsDraft>(order, *this);
}

bool WindowsCopyVolume::IsElsewhere(const std::shared_ptr<Folder>& folder, const FileHandle& file) {
  if (target_.is_remote) return false;  // flushed one by one in any case
  const std::lock_guard lock(mutex_);
  if (elsewhere_.size() > kFoldersKept) elsewhere_.clear();
  const auto [place, is_new] = elsewhere_.try_emplace(folder);
  if (is_new) place->second = VolumeNumberOf(file) != target_.number;
  return place->second;
}

Status WindowsCopyVolume::SaveData(const Drafts& drafts) {
  if (data_flush_ == DataFlush::kVolume) {
    if (FlushVolume(target_.device)) return Done{};
    data_flush_ = DataFlush::kLastFully;
  }
  if (data_flush_ == DataFlush::kLastFully) return FlushLastFully(Part(drafts, false), false);
  return Done{};
}

Status WindowsCopyVolume::SaveNames(const Drafts& drafts) {
  if (data_flush_ == DataFlush::kNever) return Done{};
  const bool by_volume = data_flush_ == DataFlush::kVolume;
  if (!names_are_ordered() && !(by_volume && FlushVolume(target_.device))) {
    if (Status flushed = FlushLastFully(Part(drafts, false), true); !flushed) return flushed;
  }
  return FlushEachFully(Part(drafts, true));
}

}  // namespace platform::windows
