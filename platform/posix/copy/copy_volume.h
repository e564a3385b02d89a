#pragma once

#include <map>
#include <mutex>

#include "platform/posix/copy/draft.h"

namespace platform::posix {

/// How many threads make sense for reading in one folder that exists and reading or writing in another.
std::size_t WorkersBetween(const std::string& source, const std::string& target);

/// Where copies from one folder and what is below it go to another one. How their data gets to the disk,
/// by the kind of volume on which the target folder at hand lies:
///  - journaled: one syncfs() a group, which since Linux 5.8 also reports what could not be written. The
///    renames after it need none: the journal keeps their order, and the data is there already. ext4 alone
///    would not see to that: with its default options its journal does not wait for the data of new files,
///    nor of those that replace others (auto_da_alloc only starts writing them out).
///  - unordered: syncfs(), the renames, an fsync() of each folder, and syncfs() once more; a file that was
///    replaced is held open until then, and so its blocks are not given to the next copies. After each
///    syncfs() an fsync() makes the disk empty its own cache: without it one of 27 power cuts on FAT left a
///    file broken.
///  - served: fdatasync() of each file by the thread that writes it.
///  - served disk: fdatasync() of each file of a group, the renames, an fsync() of each folder, and one of
///    the volume. Nothing is written meanwhile: ntfs-3g brings its whole disk out at each flush, so all but
///    the first find little to do, and no copy takes the blocks of a replaced one before the end. File by
///    file, 1,000 small copies took a model of a disk that turns 90 s; so, 5 s.
class PosixCopyVolume : public CopyVolume {
 public:
  /// Asks the system for the process's file mode mask, by setting it for a moment. Both folders exist.
  PosixCopyVolume(const std::string& source, const std::string& target);

  CopyLimits limits() const override { return limits_; }
  std::unique_ptr<Draft> Prepare(const CopyOrder& order) override;
  Status SaveData(const Drafts& drafts) override;
  Status SaveNames(const Drafts& drafts) override;

 private:
  struct Target {
    VolumeKind kind = VolumeKind::kUnordered;
    DosBitsPlace dos_bits = DosBitsPlace::kUserAttribute;
  };

  /// A link below the target folder may lead to another volume.
  Target TargetOf(const PosixFolder& folder);

  CopyLimits limits_;
  DraftSetting setting_;
  std::mutex mutex_;
  std::map<std::uint64_t, Target> targets_;  ///< by Identity::volume
};

}  // namespace platform::posix
