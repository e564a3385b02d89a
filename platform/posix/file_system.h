#pragma once

#include <memory>

#include "platform/file_system.h"
#include "platform/grouped_copier.h"
#include "platform/listing_ahead.h"

namespace platform::posix {

/// The file system of Linux. To be used from one thread.
class PosixFileSystem : public FileSystem {
 public:
  PosixFileSystem();
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
  Status CreateFolder(const std::string& path, const std::string& like = {}) override;
  Status WriteNewFile(const std::string& path, const std::string& content) override;
  bool ReadOnlyForbidsReplacing() const override { return false; }
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
  CopyThreads copy_threads_;
  ListingAhead listing_ahead_;
};

}  // namespace platform::posix
