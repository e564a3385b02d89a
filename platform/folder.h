#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_time.h"

/// What a file system says of its folders and files.
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
  /// As far as the listing itself says: read-only everywhere, hidden and system where the system's listing
  /// carries them. FileSystem::GetAttributes() always reports all three.
  Attributes attributes = 0;
  /// The file's number on its volume, that of what a link leads to; 0 where the listing does not say.
  /// FileSystem::Stat() reports it for folders, too.
  std::uint64_t number = 0;
  bool is_link = false;          ///< what has the name is a link, wherever it leads
  bool has_other_names = false;  ///< more than one name leads to the file (hard links), where that is known
};

/// What distinguishes a file or folder from all others of this computer, whichever path leads to it.
struct Identity {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;
  bool operator==(const Identity&) const = default;
};

/// Which links at the very path of a folder are followed.
enum class FollowLinks {
  kAll,
  /// Those that belong to the user who runs the program, or to the system's administrators: nobody else can
  /// have laid them.
  kTrusted,
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
  const std::optional<Identity>& identity() const { return identity_; }
  /// Whether there is a link at path(): the folder is elsewhere.
  bool is_link() const { return is_link_; }
  /// Whether another volume, or another folder of this one, is mounted at path(). Always false on Windows,
  /// where a listing has kFolderLink for that.
  bool is_mount_point() const { return is_mount_point_; }

 protected:
  std::string path_;
  std::vector<Entry> entries_;
  std::optional<Identity> identity_;
  bool is_link_ = false;
  bool is_mount_point_ = false;
};

}  // namespace platform
