#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/content_reader.h"
#include "platform/file_system.h"
#include "platform/grouped_copier.h"
#include "platform/memory/memory_node.h"

namespace platform::memory {

/// The calls of FileSystem, as a test names them when it asks what was touched or wants one to fail.
enum class Call {
  kOpenFolder,
  kLook,
  kCopyFile,     ///< the writing of a copy; path: the target file
  kReadSource,   ///< the reading side of that; path: the source file
  kReadBlock,    ///< after each block of that; path: the source file. Not recorded and cannot fail
  kSaveData,     ///< a group's data is brought to the disk; path: the first target file
  kReadBack,     ///< a copy is read back; path: the target file
  kPublish,      ///< a copy gets its final name; path: the target file
  kReadContent,  ///< a file is opened to be compared; path: its own
  kSaveNames,    ///< a group's names are brought to the disk; path: the first target file
  kCreateFolder,
  kRemoveFile,
  kGetAttributes,
  kSetAttributes,
  kSpace,
  kReadFile,
  kWriteFile,  ///< or create
  kReplaceFile,
  kLock,
  kRespell,
  kFlush,
};

/// A file system in memory with "/" paths. It holds the same contract as the real ones, records the calls
/// that `Call` names, and can be told to let them fail, each on every path or on one. Folders yield their
/// entries in the order in which they were made. What WriteFile() and ReplaceFile() make has the time
/// 1,700,000,000, which MemoryClock shows.
class MemoryFileSystem : public FileSystem {
 public:
  struct Touch {
    Call call;
    std::string path;
  };

  MemoryFileSystem();
  ~MemoryFileSystem() override;

  // --- Setting the scene. Missing parent folders are made; none of this is recorded or can fail.
  void AddFolder(const std::string& path);
  void AddFile(const std::string& path, std::string content, FileTime modified = {},
               Attributes attributes = 0);
  /// A file that only claims a size: a copy of it carries the size and no bytes.
  void AddHugeFile(const std::string& path, std::int64_t size, FileTime modified = {});
  /// A link; `destination` is absolute.
  void AddLink(const std::string& path, const std::string& destination);
  void AddPipe(const std::string& path);
  /// A folder on which another volume is mounted.
  void AddMountPoint(const std::string& path);
  /// The file or folder once more in another folder, under its own name, as by a hard link or a bind mount.
  void MountAgain(const std::string& folder, const std::string& in);
  /// It belongs to another user from now on.
  void MakeForeign(const std::string& path);
  void Remove(const std::string& path);  ///< with everything below it

  // --- Looking at it.
  bool Exists(const std::string& path) const;
  std::string ContentOf(const std::string& path) const;  ///< empty when there is no such file
  FileTime ModifiedOf(const std::string& path) const;
  Attributes AttributesOf(const std::string& path) const;
  std::vector<std::string> NamesIn(const std::string& path) const;  ///< sorted
  const std::vector<Touch>& touched() const { return touched_; }
  std::size_t CountOf(Call call) const;

  // --- Faults.
  /// From now on `call` on `path` (empty: on every path) fails with `error`; the next `times` times only when
  /// not 0.
  void Fail(Call call, const std::string& path, Error error, int times = 0);
  /// From now on copies to `path`, of files that are not empty, hold another byte than was written.
  void Garble(const std::string& path) { garbled_.insert(path); }
  /// Free and total bytes of the one volume; copies and writes lessen the free ones and fail with kDiskFull.
  /// Unlimited until set.
  void SetSpace(std::int64_t free, std::int64_t total);
  /// The disk on which the volume lies that is mounted at `mount_point`; without this one of its own.
  void SetDisk(const std::string& mount_point, const std::string& disk) { disks_[mount_point] = disk; }
  /// What LargestFile() answers; copies ignore it.
  void SetLargestFile(std::int64_t bytes) { largest_file_ = bytes; }
  /// Everything below `path` can be read but not changed (kReadOnlyMedium).
  void SetReadOnly(const std::string& path);
  /// A read-only file stays read-only whatever SetAttributes() is told (kAccessDenied).
  void KeepReadOnly(const std::string& path);
  /// Runs before each recorded call, for things that change meanwhile.
  void Before(std::function<void(Call, const std::string& path)> hook) { before_ = std::move(hook); }
  /// Copies move this many bytes between two questions to the watcher (default 256 KiB).
  void SetBlockSize(std::int64_t bytes) { block_size_ = bytes; }
  /// How many files a copier saves at a time (default 20).
  void SetGroupSize(std::size_t files) { group_size_ = files; }
  /// What a disk without a journal would hold if the power failed now: of the names that were not flushed
  /// each is as it was or as it is, as `random` has it; a file that was not flushed holds zeros; one whose
  /// space was given free holds something else. Every call fails from then on until PowerOn().
  void CutPower(unsigned random);
  void PowerOn() { is_dead_ = false; }
  /// Names are compared without regard to the case of ASCII letters.
  void IgnoreCase(bool ignore) { folding_ = ignore ? &FoldCase : nullptr; }
  /// Names in the folder and below it are compared as on a stick (see FoldMuch()), where dots at the end are
  /// not kept. With `numbers_by_spelling` a file has another number under each spelling of its path.
  void FoldNames(const std::string& folder, bool numbers_by_spelling);

  // --- FileSystem
  Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path,
                                             FollowLinks links = FollowLinks::kAll) override;
  Result<Entry> Stat(const std::string& path) override;
  Result<std::string> RealPath(const std::string& path) override;
  std::optional<Identity> IdentityOf(const std::string& path) override;
  bool BelongsToUser(const std::string& path) override;
  std::unique_ptr<Copier> MakeCopier(const std::string& source, const std::string& target) override;
  std::unique_ptr<Comparer> MakeComparer(const std::string& source, const std::string& target) override;
  Result<FileTime> ChangedAt(const std::string& path) override;
  Status CreateFolder(const std::string& path, const std::string& like = {}) override;
  Status WriteNewFile(const std::string& path, const std::string& content) override;
  bool ReadOnlyForbidsReplacing() const override { return true; }
  Status Respell(const std::string& folder, const std::string& from, const std::string& to) override;
  Status EndRespelling(const std::string& folder, const std::string& temporary) override;
  Status RemoveFile(const std::string& path) override;
  Result<Attributes> GetAttributes(const std::string& path) override;
  Status SetAttributes(const std::string& path, Attributes attributes) override;
  Result<DiskSpace> GetDiskSpace(const std::string& path) override;
  std::int64_t LargestFile(const std::string& path) override;
  std::string DriveOf(const std::string& path) override;
  std::vector<std::string> DisksOf(const std::string& path) override;
  Result<std::string> ReadFile(const std::string& path, std::int64_t limit) override;
  Status WriteFile(const std::string& path, const std::string& content) override;
  Status ReplaceFile(const std::string& path, const std::string& content) override;
  Result<std::unique_ptr<FileLock>> Lock(const std::string& path, const std::string& content) override;
  Status Flush(const std::string& path, const IdleCallback& idle) override;
  std::string NameKey(const std::string& name) const override;

 private:
  friend class MemoryContent;
  friend class MemoryDraft;
  friend class MemoryCopyVolume;

  /// A name as the disk has it while the change of it is not flushed.
  struct NameOnDisk {
    NodePtr folder;
    std::string name;
    NodePtr node;  ///< null: none
  };
  struct Fault {
    Call call;
    std::string path;  ///< empty: every path
    Error error;
    int left;  ///< how often it strikes yet; 0: always
  };

  /// Records the call, runs the hook and tells whether the call is to fail.
  std::optional<Error> Enter(Call call, const std::string& path);
  Result<NodePtr> Find(const std::string& path) const;
  Identity IdentityOf(const Node& node, const std::string& path) const;
  Result<std::unique_ptr<ReadableFile>> OpenToRead(const std::string& path);
  std::unique_ptr<ReadableFile> Reader(NodePtr file) const;
  static std::string StoredName(const Node& folder, std::string_view name);
  Entry EntryOf(const NodePtr& node, const std::string& path) const;
  bool IsReadOnlyPlace(const std::string& path) const;
  bool FitsOnDisk(std::int64_t bytes) const;
  void TakeSpace(std::int64_t bytes);
  std::optional<Error> MoveBlocks(const std::string& path, const Node& source,
                                  const CopyProgress& watcher) const;
  /// To be called before the name is made, taken away or given to something else.
  void WillChange(const NodePtr& folder, const std::string& name);
  void FlushAll();
  /// The time of the next change: each comes ten nanoseconds after the last.
  FileTime Change() { return {0, changes_ += 10}; }
  Status Put(const std::string& path, const std::string& content);
  NodePtr MakeNode(const std::string& path);

  NodePtr root_;
  std::map<std::string, std::string> locks_;  ///< what is locked, with the content
  std::vector<Touch> touched_;
  std::vector<Fault> faults_;
  std::optional<DiskSpace> space_;
  std::int64_t largest_file_ = 0;
  std::map<std::string, std::string> disks_;  ///< by mount point
  std::set<std::string> read_only_places_;
  std::set<std::string> kept_read_only_;
  std::set<std::string> garbled_;
  std::function<void(Call, const std::string&)> before_;
  std::int64_t block_size_ = std::int64_t{256} * 1024;
  Folding folding_ = nullptr;
  bool numbers_by_spelling_ = false;
  std::size_t group_size_ = 20;
  std::int32_t changes_ = 0;
  std::vector<NameOnDisk> names_on_disk_;
  std::vector<NodePtr> not_on_disk_;  ///< files whose content is not flushed
  bool is_dead_ = false;
  CopyThreads copy_threads_;
};

}  // namespace platform::memory
