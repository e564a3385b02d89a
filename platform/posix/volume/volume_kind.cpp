#include "platform/posix/volume/volume_kind.h"

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace platform::posix {
namespace {

// Those that linux/magic.h does not name; from the kernel's sources of each.
constexpr unsigned long kXfs = 0x58465342;
constexpr unsigned long kZfs = 0x2FC12FC1;
constexpr unsigned long kBcachefs = 0xCA451A4E;
constexpr unsigned long kJfs = 0x3153464A;

/// 0:0, which is no device's, when that fails; major 0 where there is none.
dev_t DeviceOf(int file) {
  struct stat facts = {};
  static_cast<void>(fstat(file, &facts));
  return facts.st_dev;
}

/// ext2, ext3 and ext4 share one magic number. The driver of ext4 tells the process that writes the journal
/// (fs/ext4/sysfs.c, since Linux 5.1); no file, or "<none>": there is no journal, as far as is known.
bool HasJournal(int file) {
  const dev_t number = DeviceOf(file);
  const std::string device =
      "/sys/dev/block/" + std::to_string(major(number)) + ":" + std::to_string(minor(number));
  std::error_code failed;
  const std::filesystem::path real = std::filesystem::canonical(device, failed);
  std::ifstream task("/sys/fs/ext4/" + real.filename().string() + "/journal_task");
  int process = 0;
  return static_cast<bool>(task >> process);
}

}  // namespace

unsigned long MagicOf(int file) {
  struct statfs facts = {};
  return fstatfs(file, &facts) == 0 ? static_cast<unsigned long>(facts.f_type) : 0;
}

VolumeKind KindOfVolume(int file) {
  switch (MagicOf(file)) {
    case EXT4_SUPER_MAGIC:
      return HasJournal(file) ? VolumeKind::kJournaled : VolumeKind::kUnordered;
    case BTRFS_SUPER_MAGIC:
    case F2FS_SUPER_MAGIC:
    case kXfs:
    case kZfs:
    case kBcachefs:
    case kJfs:
    case REISERFS_SUPER_MAGIC:
    case TMPFS_MAGIC:
      return VolumeKind::kJournaled;
    case FUSE_SUPER_MAGIC:
      return major(DeviceOf(file)) != 0 ? VolumeKind::kServedDisk : VolumeKind::kServed;
    case NFS_SUPER_MAGIC:
    case SMB_SUPER_MAGIC:
    case kCifs:
    case kSmb2:
    case V9FS_MAGIC:
    case AFS_SUPER_MAGIC:
    case CEPH_SUPER_MAGIC:
      return VolumeKind::kServed;
    default:
      return VolumeKind::kUnordered;
  }
}

}  // namespace platform::posix
