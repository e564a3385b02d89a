#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/comparer.h"
#include "platform/copier.h"
#include "platform/file_lock.h"
#include "platform/folder.h"
#include "platform/idle_callback.h"
#include "platform/result.h"

/// The file system as the program sees it. Paths are absolute UTF-8 texts; names pass through without loss:
/// on Linux the bytes as they are, on Windows UTF-16 turned into UTF-8 with unpaired surrogates kept as three
/// bytes. A path may be longer than the system's own limit for one call (1,000 characters on Windows, more
/// than 4,096 bytes on Linux). No call throws; every failure is a value.
///
/// All calls from one thread, also those of the folders, copiers and comparers that it made; none of these
/// may outlive it, nor be used with those of another file system.
namespace platform {

/// Bytes on the volume that holds a path.
struct DiskSpace {
  std::int64_t free = 0;   ///< free to this user
  std::int64_t total = 0;  ///< the size of the volume
};

/// From a system's own numbers; what is too large counts as the most that there can be.
inline DiskSpace DiskSpaceOf(std::uint64_t free, std::uint64_t total) {
  constexpr std::uint64_t kMost = INT64_MAX;
  return {static_cast<std::int64_t>(std::min(free, kMost)),
          static_cast<std::int64_t>(std::min(total, kMost))};
}

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Opens and lists a folder. kNotFound, kNotAFolder, kAccessDenied; kForeignLink for a link at `path` that
  /// is not followed. Links further up in the path are followed.
  virtual Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path,
                                                     FollowLinks links = FollowLinks::kAll) = 0;

  /// A hint that OpenFolder(path, links) is called soon: the folder may be listed in the background
  /// meanwhile, up to a second ahead. There may be hints for many folders at a time. False when it comes too
  /// early: there are enough others.
  virtual bool PrefetchFolder(const std::string& path, FollowLinks links = FollowLinks::kAll) {
    static_cast<void>(path);
    static_cast<void>(links);
    return true;
  }

  /// What is at `path`, links followed as in a listing. kNotFound when nothing does.
  virtual Result<Entry> Stat(const std::string& path) = 0;

  /// `path` with every link in it resolved, without "." and "..". The path must exist.
  virtual Result<std::string> RealPath(const std::string& path) = 0;

  /// What stands for the file or folder at `path`, links followed: a folder that is mounted in two places, or
  /// shared under two names, has two real paths. Empty when there is nothing, or its volume does not say.
  virtual std::optional<Identity> IdentityOf(const std::string& path) = 0;

  /// Whether what is at `path`, a link for itself, belongs to the user who runs the program, or to the
  /// system's administrators.
  virtual bool BelongsToUser(const std::string& path) = 0;

  /// What copies files from below `source` to below `target`, both folders that exist; see Copier. Must not
  /// outlive the file system.
  virtual std::unique_ptr<Copier> MakeCopier(const std::string& source, const std::string& target) = 0;

  /// What compares files below `source` with files below `target`, both folders that exist; see Comparer.
  /// Must not outlive the file system.
  virtual std::unique_ptr<Comparer> MakeComparer(const std::string& source, const std::string& target) = 0;

  /// When the file at `path` came to be there or was changed last, as its volume's clock says: a copy has the
  /// time of its copying there, whatever its modification time. A link stands for itself.
  virtual Result<FileTime> ChangedAt(const std::string& path) = 0;

  /// Creates one folder whose parent exists, open to nobody who may not read or change the folder `like`, as
  /// far as the system keeps that; its owner can always write. With an empty `like` the system's defaults
  /// hold. kAlreadyExists when anything has the name.
  virtual Status CreateFolder(const std::string& path, const std::string& like = {}) = 0;

  /// Creates a file that holds `content`. kAlreadyExists when anything has the name, a link too: it is
  /// neither opened nor followed. A failure leaves nothing.
  virtual Status WriteNewFile(const std::string& path, const std::string& content) = 0;

  /// Whether a read-only file must be made writable before a copy can take its place.
  virtual bool ReadOnlyForbidsReplacing() const = 0;

  /// Gives the file or folder `from` in `folder` the same name in another spelling, such as other letters
  /// where the volume ignores case. For a moment it may lie, already in the new spelling, in a folder
  /// in `folder` that has a temporary name.
  virtual Status Respell(const std::string& folder, const std::string& from, const std::string& to) = 0;

  /// Ends what a Respell() began that was interrupted: all that is in `temporary`, such a folder in
  /// `folder`, moves up into `folder`, and `temporary` is removed. A name that is taken there stays below.
  virtual Status EndRespelling(const std::string& folder, const std::string& temporary) = 0;

  /// Removes one file or link, also one that is read-only. Not a folder.
  virtual Status RemoveFile(const std::string& path) = 0;

  /// All three attribute bits of a file; links followed.
  virtual Result<Attributes> GetAttributes(const std::string& path) = 0;

  /// Makes the three bits of a file what `attributes` says and leaves everything else of it alone.
  virtual Status SetAttributes(const std::string& path, Attributes attributes) = 0;

  /// The space on the volume that holds `path`; `path` itself may be missing while its parent exists. kOther
  /// when the volume reports no size, as some do that lie in memory or elsewhere: that is not a full one.
  virtual Result<DiskSpace> GetDiskSpace(const std::string& path) = 0;

  /// The most bytes that one file may have on the volume that holds `path`, which may be missing like that of
  /// GetDiskSpace(); 0 when no limit is known.
  virtual std::int64_t LargestFile(const std::string& path) = 0;

  /// The root of the volume that holds `path`, as the user names it: "E:" on Windows, the mount point on
  /// Linux. Empty when it is not known.
  virtual std::string DriveOf(const std::string& path) = 0;

  /// Names for the physical disks on which the volume of `path` lies: two paths that have one in common are
  /// lost together when it fails. Empty when that is not known, as on a network.
  virtual std::vector<std::string> DisksOf(const std::string& path) = 0;

  /// The whole content of a file. kTooLarge when it has more than `limit` bytes.
  virtual Result<std::string> ReadFile(const std::string& path, std::int64_t limit) = 0;

  /// Writes a file in place, creating or emptying it first. A failure may leave a part of it.
  virtual Status WriteFile(const std::string& path, const std::string& content) = 0;

  /// Writes a file beside `path` and moves it over it: afterwards `path` holds all of `content`, and on
  /// failure what it held before. Flushed to the disk.
  virtual Status ReplaceFile(const std::string& path, const std::string& content) = 0;

  /// Makes the file `path`, in which others may read `content`, and locks it; both last as long as the lock.
  /// What a dead program left there is replaced. kInUse when a living one holds the lock: the error's text is
  /// then the first 1,024 bytes of its content, or empty. kAlreadyExists when something else than a file
  /// has the name, which is left alone; any other failure means that nothing can be locked there.
  virtual Result<std::unique_ptr<FileLock>> Lock(const std::string& path, const std::string& content) = 0;

  /// Returns when everything written to the volume of the folder `path` so far, names too, is on the disk, as
  /// far as the system passes that on (not to FUSE) and the user may ask for it; on a slow one that may take
  /// minutes. kCancelled when `idle`, which may be empty, does not want to wait.
  virtual Status Flush(const std::string& path, const IdleCallback& idle) = 0;

  /// Two names are one file's in a folder exactly when their keys are equal: the name itself on Linux, the
  /// name without regard to case on Windows.
  virtual std::string NameKey(const std::string& name) const = 0;
};

/// Whether a name is one that a Copier or ReplaceFile() gives a file while it is being written.
bool IsTemporaryName(const std::string& name);

/// A fresh name of that kind; two calls never give the same one, nor do two running programs.
std::string MakeTemporaryName();

}  // namespace platform
