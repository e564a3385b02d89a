#include "platform/posix/file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>

#include "platform/pair_comparer.h"
#include "platform/path.h"
#include "platform/posix/attributes/attribute_change.h"
#include "platform/posix/attributes/owner.h"
#include "platform/posix/copy/copy_volume.h"
#include "platform/posix/file_lock.h"
#include "platform/posix/folder_change.h"
#include "platform/posix/listing/file_facts.h"
#include "platform/posix/listing/readable_file.h"
#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"
#include "platform/posix/volume/physical_disk.h"
#include "platform/posix/volume/volume.h"
#include "platform/posix/whole_file.h"

namespace platform::posix {
namespace {

std::string NamePart(const std::string& path) { return std::string(NameOf(path, PathStyle::kPosix)); }

std::string Parent(const std::string& path) { return ParentOf(path, PathStyle::kPosix); }

ListingAhead::Listing List(const std::string& path, FollowLinks links) {
  auto folder = PosixFolder::Open(path, links);
  if (!folder) return folder.error();
  return std::unique_ptr<Folder>(std::move(*folder));
}

}  // namespace

PosixFileSystem::PosixFileSystem() : listing_ahead_(List) {}

Result<std::unique_ptr<Folder>> PosixFileSystem::OpenFolder(const std::string& path, FollowLinks links) {
  return listing_ahead_.Take(path, links);
}

bool PosixFileSystem::PrefetchFolder(const std::string& path, FollowLinks links) {
  return listing_ahead_.Begin(path, links);
}

Result<Entry> PosixFileSystem::Stat(const std::string& path) {
  const auto place = Reach(path);
  if (!place) return place.error();
  Entry entry;
  entry.name = NamePart(path);
  if (!FillEntry(place->at(), place->rest, DT_UNKNOWN, entry)) return LastError();
  return entry;
}

Result<std::string> PosixFileSystem::RealPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr), &std::free);
  if (resolved) return std::string(resolved.get());
  if (errno != ENAMETOOLONG) return LastError();
  // The system resolves no path of this length at one go: parent and name apart.
  const auto entry = Stat(path);
  if (!entry) return entry.error();
  if (entry->is_link) return ErrorOf(ENAMETOOLONG);
  const auto parent = RealPath(Parent(path));
  if (!parent) return parent.error();
  return JoinPath(*parent, entry->name, PathStyle::kPosix);
}

std::optional<Identity> PosixFileSystem::IdentityOf(const std::string& path) {
  const auto place = Reach(path);
  struct stat facts = {};
  if (!place || fstatat(place->at(), place->rest, &facts, 0) != 0) return std::nullopt;
  return Identity{facts.st_dev, facts.st_ino};
}

bool PosixFileSystem::BelongsToUser(const std::string& path) {
  const auto owner = OwnerOf(path);
  return owner && owner->is_trusted;
}

std::unique_ptr<Copier> PosixFileSystem::MakeCopier(const std::string& source, const std::string& target) {
  return std::make_unique<GroupedCopier>(std::make_shared<PosixCopyVolume>(source, target), copy_threads_);
}

std::unique_ptr<Comparer> PosixFileSystem::MakeComparer(const std::string& source,
                                                        const std::string& target) {
  // Two disks with cold caches are kept busier than by as many threads as there are cores.
  constexpr std::size_t kFewestReaders = 4;
  const std::size_t workers = WorkersBetween(source, target);
  copy_threads_.writers.Allow(std::max(workers, kFewestReaders));
  return std::make_unique<PairComparer>(OpenToRead, copy_threads_.writers, workers);
}

Result<FileTime> PosixFileSystem::ChangedAt(const std::string& path) {
  const auto place = Reach(path);
  if (!place) return place.error();
  struct statx facts = {};
  if (statx(place->at(), place->rest, AT_SYMLINK_NOFOLLOW, STATX_CTIME | STATX_BTIME, &facts) != 0)
    return LastError();
  // FAT and exFAT keep no time of change, but the one of the file's birth; a copy is born when it is made.
  const FileTime changed{facts.stx_ctime.tv_sec, static_cast<std::int32_t>(facts.stx_ctime.tv_nsec)};
  const FileTime born{facts.stx_btime.tv_sec, static_cast<std::int32_t>(facts.stx_btime.tv_nsec)};
  return (facts.stx_mask & STATX_BTIME) != 0 ? std::max(changed, born) : changed;
}

Status PosixFileSystem::CreateFolder(const std::string& path, const std::string& like) {
  return MakeFolder(path, like);
}

Status PosixFileSystem::WriteNewFile(const std::string& path, const std::string& content) {
  return CreateWhole(path, content);
}

Status PosixFileSystem::Respell(const std::string& folder, const std::string& from, const std::string& to) {
  return posix::Respell(folder, from, to);
}

Status PosixFileSystem::EndRespelling(const std::string& folder, const std::string& temporary) {
  return posix::EndRespelling(folder, temporary);
}

Status PosixFileSystem::RemoveFile(const std::string& path) {
  const auto place = Reach(path);
  if (!place) return place.error();
  if (unlinkat(place->at(), place->rest, 0) != 0) return LastError();
  return Done{};
}

Result<Attributes> PosixFileSystem::GetAttributes(const std::string& path) { return ReadAttributes(path); }

Status PosixFileSystem::SetAttributes(const std::string& path, Attributes attributes) {
  return ChangeAttributes(path, attributes);
}

/// Every run ends with this question, and then nothing of the volume is to be held open.
Result<DiskSpace> PosixFileSystem::GetDiskSpace(const std::string& path) {
  ForgetWays();
  return SpaceAt(path);
}

std::int64_t PosixFileSystem::LargestFile(const std::string& path) { return LargestFileAt(path); }

std::string PosixFileSystem::DriveOf(const std::string& path) {
  const auto real = RealPath(path);
  if (real) return MountPointOf(*real);
  const auto parent = RealPath(Parent(path));
  return parent ? MountPointOf(*parent) : std::string();
}

std::vector<std::string> PosixFileSystem::DisksOf(const std::string& path) { return DisksOfVolume(path); }

Result<std::string> PosixFileSystem::ReadFile(const std::string& path, std::int64_t limit) {
  return ReadWhole(path, limit);
}

Status PosixFileSystem::WriteFile(const std::string& path, const std::string& content) {
  return WriteWhole(path, content);
}

Status PosixFileSystem::ReplaceFile(const std::string& path, const std::string& content) {
  // A file that is kept elsewhere and linked to stays a link.
  const auto real = RealPath(path);
  return ReplaceWhole(real ? *real : path, content);
}

Result<std::unique_ptr<FileLock>> PosixFileSystem::Lock(const std::string& path, const std::string& content) {
  return LockAt(path, content);
}

Status PosixFileSystem::Flush(const std::string& path, const IdleCallback& idle) {
  copy_threads_.saver.Allow(1);
  return FlushVolumeOf(path, copy_threads_.saver, idle);
}

std::string PosixFileSystem::NameKey(const std::string& name) const { return name; }

}  // namespace platform::posix
