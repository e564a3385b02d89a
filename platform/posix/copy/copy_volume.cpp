#include "platform/posix/copy/copy_volume.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <set>
#include <thread>

#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"
#include "platform/posix/volume/volume.h"

namespace platform::posix {
namespace {

// A round trip takes long and little processor time.
constexpr std::size_t kWorkersOfServed = 8;
constexpr std::size_t kMostWorkers = 4;
// Also for disks that turn: what is written is in memory first, and sources are asked for ahead. Which disk
// turns, the system often does not know: virtual ones and USB sticks say that they do.
constexpr std::size_t kFewestWorkers = 2;

mode_t FileModeMask() {
  const mode_t mask = umask(S_IWGRP | S_IWOTH);
  umask(mask);
  return mask;
}

std::size_t WorkersFor(VolumeKind source, VolumeKind target) {
  if (source == VolumeKind::kServed || target == VolumeKind::kServed) return kWorkersOfServed;
  const std::size_t cores = std::thread::hardware_concurrency();
  return std::clamp(cores, kFewestWorkers, kMostWorkers);
}

/// Each folder holds two descriptors while its files are on their way, and three groups are at a time.
std::size_t MostFolders() {
  const long descriptors = std::max(sysconf(_SC_OPEN_MAX), 256L);
  return std::min<std::size_t>(static_cast<std::size_t>(descriptors) / 8, 512);
}

CopyLimits LimitsOf(VolumeKind source, VolumeKind target) {
  CopyLimits limits;
  limits.workers = WorkersFor(source, target);
  limits.folders = MostFolders();
  // Without a journal each group is flushed twice; but every file in it holds a descriptor, and a power cut
  // between its renames finds more of them.
  limits.files = target == VolumeKind::kUnordered ? std::min<std::size_t>(limits.folders, 128) : 4096;
  limits.bytes = std::int64_t{256} << 20;
  return limits;
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
  const auto kind_of = [](const std::string& path) {
    const auto folder = OpenPath(path, O_RDONLY | O_DIRECTORY);
    return folder ? KindOfVolume(folder->get()) : VolumeKind::kUnordered;
  };
  return WorkersFor(kind_of(source), kind_of(target));
}

PosixCopyVolume::PosixCopyVolume(const std::string& source, const std::string& target) {
  const auto from = OpenPath(source, O_RDONLY | O_DIRECTORY);
  const auto to = OpenPath(target, O_RDONLY | O_DIRECTORY);
  const VolumeKind source_kind = from ? KindOfVolume(from->get()) : VolumeKind::kUnordered;
  limits_ = LimitsOf(source_kind, to ? KindOfVolume(to->get()) : VolumeKind::kUnordered);
  if (from) setting_.source_dos_bits = PlaceOfDosBits(from->get());
  setting_.mask = FileModeMask();
}

std::unique_ptr<Draft> PosixCopyVolume::Prepare(const CopyOrder& order) {
  DraftSetting setting = setting_;
  const Target target = TargetOf(static_cast<const PosixFolder&>(*order.target));
  setting.target = target.kind;
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
  return FlushVolumes(drafts, [](VolumeKind kind) { return kind != VolumeKind::kServed; });
}

Status PosixCopyVolume::SaveNames(const Drafts& drafts) {
  std::set<int> folders;
  for (const Draft* draft : drafts) {
    const auto& copy = static_cast<const PosixDraft&>(*draft);
    if (copy.volume_kind() != VolumeKind::kUnordered) continue;
    const int folder = copy.target().handle();
    if (folders.insert(folder).second && fsync(folder) != 0 && errno != EINVAL) return LastError();
  }
  return FlushVolumes(drafts, [](VolumeKind kind) { return kind == VolumeKind::kUnordered; });
}

}  // namespace platform::posix
