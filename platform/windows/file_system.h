#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/grouped_copier.h"
#include "platform/listing_ahead.h"

namespace platform::windows {

/// The file system of Windows. To be used from one thread.
///
/// How copies get to the disk: see WindowsCopyVolume. What Flush() can promise of the names that they were
/// given last depends on the user's rights. Whoever may open the volume (administrators, as a rule) has all
/// of it written out. For everybody else Windows flushes single files only; then a small file is made beside
/// the copies, flushed and removed again. A file system with a journal writes down changes in their order, so
/// that the names of the copies should be on the disk before it; Microsoft nowhere promises that. When it is
/// not so, a power cut leaves the copies that were replaced last as they had been, and new ones missing.
class WindowsFileSystem : public FileSystem {
 public:
  WindowsFileSystem();
  Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path,
                                             FollowLinks links = FollowLinks::kAll) override;
  bool PrefetchFolder(const std::string& path, FollowLinks links = FollowLinks::kAll) override;
  Result<Entry> Stat(const std::string& path) override;
  Result<std::string> RealPath(const std::string& path) override;
  std::optional<Identity> IdentityOf(const std::string& path) override;
  bool BelongsToUser(const std::string& path) override;
  std::unique_ptr<Copier> MakeCopier(const std::string& source, const std::string& target) override;
  std::unique_ptr<Comparer> MakeComparer(const std::string& source, const std::string& target) override;
  Result<FileTime> ChangedAt(const std::string& path) override;
  /// A new folder hands down the rights of the one above it, whatever `like` has.
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
  /// In upper case, letter by letter, as NTFS compares names.
  std::string NameKey(const std::string& name) const override;

 private:
  /// The long form of a path or, where there is a link, of what it leads to.
  std::wstring LinkTarget(const std::string& path);

  CopyThreads copy_threads_;
  ListingAhead listing_ahead_;
};

}  // namespace platform::windows
