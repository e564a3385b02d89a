#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_time.h"
#include "platform/result.h"
#include "platform/waiting.h"

/// The file system as the program sees it. Paths are absolute UTF-8 texts; names pass through without loss:
/// on Linux the bytes as they are, on Windows UTF-16 turned into UTF-8 with unpaired surrogates kept as three
/// bytes. A path may be longer than the system's own limit for one call (1,000 characters on Windows, more
/// than 4,096 bytes on Linux). No call throws; every failure is a value.
namespace platform {

/// The attribute bits of a file, with the values that Windows gives them.
using Attributes = std::uint32_t;
inline constexpr Attributes kReadOnly = 1;
inline constexpr Attributes kHidden = 2;
inline constexpr Attributes kSystem = 4;

enum class EntryKind {
  kFile,        ///< a regular file, or a link that leads to one
  kFolder,      ///< a folder of its own
  kFolderLink,  ///< a link (symbolic link, junction) that leads to a folder
  kDeadLink,    ///< a link that leads nowhere, or in a circle
  kOther,       ///< a pipe, socket or device
};

/// Whether it is a folder or leads to one.
inline bool IsFolder(EntryKind kind) { return kind == EntryKind::kFolder || kind == EntryKind::kFolderLink; }

/// The most bytes that a file may have on FAT.
inline constexpr std::int64_t kLargestOnFat = 0xFFFFFFFF;

/// The size of a file whose data about itself could not be read.
inline constexpr std::int64_t kUnknownSize = -1;

/// What a listing says of one file or folder.
struct Entry {
  std::string name;  ///< the last part of the path
  EntryKind kind = EntryKind::kFile;
  /// Bytes; of the file that a link leads to; kUnknownSize for all but readable files.
  std::int64_t size = kUnknownSize;
  std::optional<FileTime> modified;  ///< of a file; empty when it could not be read
  /// As far as the listing itself tells: read-only everywhere, hidden and system where the system's listing
  /// carries them. FileSystem::GetAttributes() always tells all three.
  Attributes attributes = 0;
};

/// What tells a folder from all others of this computer, whichever path leads to it.
struct FolderIdentity {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;
  bool operator==(const FolderIdentity&) const = default;
};

/// One folder, opened and listed once. While it lives, its files are reached through it without looking the
/// path up again. Holds one system handle at most.
class Folder {
 public:
  virtual ~Folder() = default;
  const std::string& path() const { return path_; }
  /// The folder's content in the order in which the system yields it, without "." and "..".
  const std::vector<Entry>& entries() const { return entries_; }
  /// Empty where FileSystem::IdentityOf() is.
  const std::optional<FolderIdentity>& identity() const { return identity_; }
  /// Whether another volume, or another folder of this one, is mounted at path(). Always false on Windows,
  /// where a listing has kFolderLink for that.
  bool is_mount_point() const { return is_mount_point_; }

 protected:
  std::string path_;
  std::vector<Entry> entries_;
  std::optional<FolderIdentity> identity_;
  bool is_mount_point_ = false;
};

/// How much earlier than its source a copy is dated whose source changed meanwhile: nobody takes it for a
/// difference of clocks or time zones. Seconds.
inline constexpr std::int64_t kEarlierWhenChanged = 600;

/// Whether the caller's listing of the target has something under the name of a file that is to be copied.
enum class TargetName { kFree, kTaken };

struct CopyOutcome {
  std::int64_t bytes = 0;            ///< the length of the copy
  Attributes source_attributes = 0;  ///< all three bits of the source
  Attributes target_attributes = 0;  ///< all three bits of the copy as it now is
  /// The source was written to meanwhile: the copy may hold old parts and new ones.
  bool changed = false;
};

/// Bytes on the volume that holds a path.
struct DiskSpace {
  std::uint64_t free = 0;   ///< free to this user
  std::uint64_t total = 0;  ///< the size of the volume
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Opens and lists a folder. Follows a link that stands at `path` itself. kNotFound, kNotAFolder,
  /// kAccessDenied.
  virtual Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path) = 0;

  /// A hint that OpenFolder(path) is called soon: the folder may be listed in the background meanwhile. Only
  /// the last hint counts. May do nothing.
  virtual void ExpectFolder(const std::string& path) { static_cast<void>(path); }

  /// What stands at `path`, links followed as in a listing. kNotFound when nothing does.
  virtual Result<Entry> Look(const std::string& path) = 0;

  /// `path` with every link in it resolved, without "." and "..". The path must exist.
  virtual Result<std::string> RealPath(const std::string& path) = 0;

  /// What stands for the folder at `path`, links followed: a folder that is mounted in two places has two
  /// real paths. Empty when there is no folder, and on Windows, where RealPath() tells.
  virtual std::optional<FolderIdentity> IdentityOf(const std::string& path) {
    static_cast<void>(path);
    return std::nullopt;
  }

  /// Copies the file `file` (an entry of `source`) to the same name in `target` as one transaction: data,
  /// length check, modification time, attributes (read-only and hidden are dropped, system is kept), then one
  /// atomic step gives it its final name and replaces a file that stands there. `target` need not be a fresh
  /// listing. Whatever fails, and whenever the program ends, the final name holds the whole old file or the
  /// whole new one, also when the power fails: a file that replaces another is on the disk before it does; a
  /// temporary file is removed on failure, and after a kill is recognised by IsTemporaryName(). Where the
  /// name was free and the power fails before Flush(), the new file may be missing, short, or hold zeros.
  /// With TargetName::kFree nothing is replaced: kNameTaken when something bears the name all the same, such
  /// as a name in other letters where the volume does not heed case. A read-only or hidden file at the final
  /// name is replaced where the system allows it, else kAccessDenied. Follows a link at the source; replaces
  /// a link at the target. kIsAFolder when a folder bears the final name. A source that is written to
  /// meanwhile gives the copy its length at the end of reading; the copy's time then lies kEarlierWhenChanged
  /// before the source's, so that it does not count as up to date. With files that take one read, and where a
  /// system tells of writes late, this can go unnoticed.
  virtual Result<CopyOutcome> CopyFile(const Folder& source, const Entry& file, Folder& target,
                                       TargetName name, const CopyWatcher& watcher) = 0;

  /// A hint that these entries of `source` are copied next, in this order. May do nothing. The entries must
  /// stay valid until the folder is closed.
  virtual void ExpectCopies(const Folder& source, const std::vector<const Entry*>& files) {
    static_cast<void>(source);
    static_cast<void>(files);
  }

  /// Creates one folder whose parent exists. kAlreadyExists when anything bears the name.
  virtual Status CreateFolder(const std::string& path) = 0;

  /// Removes one file or link, also one that is read-only. Not a folder.
  virtual Status RemoveFile(const std::string& path) = 0;

  /// All three attribute bits of a file; links followed.
  virtual Result<Attributes> GetAttributes(const std::string& path) = 0;

  /// Makes the three bits of a file what `attributes` says and leaves everything else of it alone.
  virtual Status SetAttributes(const std::string& path, Attributes attributes) = 0;

  /// The space on the volume that holds `path`; `path` itself may be missing while its parent exists.
  virtual Result<DiskSpace> Space(const std::string& path) = 0;

  /// The most bytes that one file may have on the volume that holds `path`, which may be missing like that of
  /// Space(); 0 when no limit is known.
  virtual std::int64_t LargestFile(const std::string& path) = 0;

  /// The root of the volume that holds `path`, as the user names it: "E:" on Windows, the mount point on
  /// Linux. Empty when it cannot be told.
  virtual std::string DriveOf(const std::string& path) = 0;

  /// The whole content of a file. kTooLarge when it has more than `limit` bytes.
  virtual Result<std::string> ReadFile(const std::string& path, std::int64_t limit) = 0;

  /// Writes a file in place, creating or emptying it first. A failure may leave a part of it.
  virtual Status WriteFile(const std::string& path, const std::string& content) = 0;

  /// Writes a file beside `path` and moves it over it: afterwards `path` holds all of `content`, and on
  /// failure what it held before. Flushed to the disk.
  virtual Status ReplaceFile(const std::string& path, const std::string& content) = 0;

  /// Returns when everything written to the volume of `path` so far is on the disk; on a slow one that may
  /// take minutes. `waiting` may be empty.
  virtual Status Flush(const std::string& path, const Waiting& waiting) = 0;

  /// Two names are one file's in a folder exactly when their keys are equal: the name itself on Linux, the
  /// name without regard to case on Windows.
  virtual std::string NameKey(const std::string& name) const = 0;
};

/// Whether a name is one that CopyFile() or ReplaceFile() gives a file while it is being written.
bool IsTemporaryName(const std::string& name);

/// A fresh name of that kind; two calls never give the same one, nor do two running programs.
std::string MakeTemporaryName();

}  // namespace platform
