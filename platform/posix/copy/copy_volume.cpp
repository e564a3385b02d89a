#include "platform/posix/copy/copy_volume.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <set>
#include <thread>

#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"
#include "platform/posix/volume/physical_disk.h"
#include "platform/posix/volume/volume.h"

namespace platform::posix {
namespace {

// A round trip takes long and little processor time.
constexpr std::size_t kWorkersOfServed = 8;
constexpr std::size_t kMostWorkers = 4;
// Enough for a disk that turns: on a model of one, four with a big file each took 1.3 to 1.4 times as long.
constexpr std::size_t kFewestWorkers = 2;
// As many as are handed to a worker at a time.
constexpr std::size_t kMostAhead = 50;

mode_t FileModeMask() {
  const mode_t mask = umask(S_IWGRP | S_IWOTH);
  umask(mask);
  return mask;
}

/// A folder that exists; unordered when it cannot be opened.
struct Place {
  explicit Place(const std::string& path)
      : folder(OpenPath(path, O_RDONLY | O_DIRECTORY)),
        kind(folder ? KindOfVolume(folder->get()) : VolumeKind::kUnordered),
        turns(Turns(path)) {}

  Result<FileDescriptor> folder;
  VolumeKind kind;
  bool turns;  ///< its disk
};

std::size_t WorkersFor(const Place& source, const Place& target) {
  if (source.kind == VolumeKind::kServed || target.kind == VolumeKind::kServed) return kWorkersOfServed;
  if (source.turns || target.turns) return kFewestWorkers;
  const std::size_t cores = std::thread::hardware_concurrency();
  return std::clamp(cores, kFewestWorkers, kMostWorkers);
}

/// How many the process may have; reckoned with no fewer than there are usually at least.
std::size_t Descriptors() { return static_cast<std::size_t>(std::max(sysconf(_SC_OPEN_MAX), 256L)); }

CopyLimits LimitsOf(const Place& source, const Place& target) {
  CopyLimits limits;
  limits.workers = WorkersFor(source, target);
  limits.big_files_alone = source.turns || target.turns;
  limits.ahead = std::clamp<std::size_t>(Descriptors() / (4 * limits.workers), 1, kMostAhead);
  // Each folder holds two descriptors while its files are on their way, and three groups are at a time.
  limits.folders = std::min<std::size_t>(Descriptors() / 8, 512);
  // Without a journal each group is flushed twice; but every file in it holds a descriptor, and a power cut
  // between its renames finds more of them.
  limits.files = !KeepsOrder(target.kind) ? std::min<std::size_t>(limits.folders, 128) : 4096;
  limits.saves_alone = target.kind == VolumeKind::kServedDisk;
  limits.bytes = std::int64_t{256} << 20;
  return limits;
}

std::vector<TemporaryFile*> OpenFiles(const Drafts& drafts) {
  std::vector<TemporaryFile*> files;
  for (Draft* draft : drafts) {
    auto& copy = static_cast<PosixDraft&>(*draft);
    if (copy.volume_kind() == VolumeKind::kServedDisk) files.push_back(&copy.file());
  }
  return files;
}

/// Flushes each of the volumes once.
template <typename Wanted>
Status FlushVolumes(const Drafts& drafts, Wanted wanted) {
  std::set<std::uint64_t> flushed;
  for (const Draft* draft : drafts) {
    const auto& copy = static_cast<const PosixDraft&>(*draft);
    if (!wanted(copy.volume_kind())) continue;
    const auto& identity = copy.target().identity();
    if (!flushed.insert(identity ? identity->volume : 0).second && identity) continue;
    if (Status done = FlushVolume(copy.target().handle()); !done) return done;
  }
  return Done{};
}

}  // namespace

std::size_t WorkersBetween(const std::string& source, const std::string& target) {
  return WorkersFor(Place(source), Place(target));
}

PosixCopyVolume::PosixCopyVolume(const std::string& source, const std::string& target) {
  const Place from(source);
  limits_ = LimitsOf(from, Place(target));
  if (from.folder) setting_.source_dos_bits = PlaceOfDosBits(from.folder->get());
  setting_.mask = FileModeMask();
}

std::unique_ptr<Draft> PosixCopyVolume::Prepare(const CopyOrder& order) {
  DraftSetting setting = setting_;
  const Target target = TargetOf(static_cast<const PosixFolder&>(*order.target));
  // Behind a link in a target of another kind, groups are too large for each copy to stay open.
  const bool would_stay_open = target.kind == VolumeKind::kServedDisk && !limits_.saves_alone;
  setting.target = would_stay_open ? VolumeKind::kServed : target.kind;
  setting.dos_bits = target.dos_bits;
  return std::make_unique<PosixDraft>(order, setting);
}

PosixCopyVolume::Target PosixCopyVolume::TargetOf(const PosixFolder& folder) {
  if (!folder.identity()) return {};
  const std::lock_guard lock(mutex_);
  const auto [place, is_new] = targets_.try_emplace(folder.identity()->volume);
  if (is_new) place->second = {KindOfVolume(folder.handle()), PlaceOfDosBits(folder.handle())};
  return place->second;
}

Status PosixCopyVolume::SaveData(const Drafts& drafts) {
  const std::vector<TemporaryFile*> open = OpenFiles(drafts);
  for (const TemporaryFile* file : open) {
    if (Status flushed = file->Flush(); !flushed) return flushed;
  }
  // Not each after its flush: ntfs-3g writes to the disk once more when a file is closed, and the next flush
  // would have to wait for that.
  for (TemporaryFile* file : open) {
    if (Status closed = file->Close(); !closed) return closed;
  }
  return FlushVolumes(drafts, [](VolumeKind kind) {
    return kind == VolumeKind::kJournaled || kind == VolumeKind::kUnordered;
  });
}

Status PosixCopyVolume::SaveNames(const Drafts& drafts) {
  std::set<int> folders;
  for (const Draft* draft : drafts) {
    const auto& copy = static_cast<const PosixDraft&>(*draft);
    const int folder = copy.target().handle();
    if (KeepsOrder(copy.volume_kind()) || !folders.insert(folder).second) continue;
    if (Status flushed = FlushFolder(folder); !flushed) return flushed;
  }
  return FlushVolumes(drafts, [](VolumeKind kind) { return !KeepsOrder(kind); });
}

}  // namespace platform::posix
