#include "platform/posix/volume/volume.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <utility>

#include "platform/path.h"
#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"
#include "platform/posix/volume/volume_kind.h"

namespace platform::posix {
namespace {

/// Opens `path`, or its parent when there is nothing.
Result<FileDescriptor> OpenOnVolume(const std::string& path, int flags) {
  auto file = OpenPath(path, flags);
  if (file.ok() || file.error().kind != ErrorKind::kNotFound) return file;
  return OpenPath(ParentOf(path, PathStyle::kPosix), flags);
}

Result<dev_t> DeviceOf(const std::string& path) {
  const auto reached = Reach(path);
  if (!reached) return reached.error();
  struct stat facts = {};
  if (fstatat(reached->at(), reached->rest, &facts, 0) != 0) return LastError();
  return facts.st_dev;
}

}  // namespace

Result<DiskSpace> SpaceAt(const std::string& path) {
  struct statvfs facts = {};
  if (statvfs(path.c_str(), &facts) != 0) {
    const auto place = OpenOnVolume(path, O_PATH);
    if (!place) return place.error();
    if (fstatvfs(place->get(), &facts) != 0) return LastError();
  }
  if (facts.f_blocks == 0) return ErrorOf(ENOSYS);  // the volume counts no blocks
  return DiskSpaceOf(std::uint64_t{facts.f_bavail} * facts.f_frsize,
                     std::uint64_t{facts.f_blocks} * facts.f_frsize);
}

std::int64_t LargestFileAt(const std::string& path) {
  const auto place = OpenOnVolume(path, O_PATH);
  const bool is_fat = place && MagicOf(place->get()) == MSDOS_SUPER_MAGIC;
  return is_fat ? kLargestOnFat : 0;
}

std::string MountPointOf(const std::string& path) {
  std::string place = path;
  auto device = DeviceOf(place);
  if (!device) device = DeviceOf(place = ParentOf(place, PathStyle::kPosix));
  if (!device) return {};
  while (place != "/") {
    const std::string above = ParentOf(place, PathStyle::kPosix);
    const auto device_above = DeviceOf(above);
    if (!device_above || *device_above != *device) break;
    place = above;
  }
  return place;
}

/// On FAT syncfs() was seen to hand everything to the disk without making it empty its cache, as journaled
/// volumes do; fsync() of any file or folder there does. Other volumes without a journal are not trusted
/// either.
Status FlushVolume(int file) {
  if (syncfs(file) != 0) return LastError();
  return KeepsOrder(KindOfVolume(file)) ? Status(Done{}) : FlushFolder(file);
}

Status FlushFolder(int folder) {
  if (fsync(folder) == 0 || errno == EINVAL || errno == ENOSYS) return Done{};
  return LastError();
}

Status FlushVolumeOf(const std::string& path, Workers& worker, const IdleCallback& idle) {
  auto place = OpenOnVolume(path, O_RDONLY | O_NONBLOCK);
  if (!place) return place.error();
  const auto file = std::make_shared<const FileDescriptor>(std::move(*place));
  return WaitFor(
      worker, [file] { return FlushVolume(file->get()); }, idle);
}

}  // namespace platform::posix
