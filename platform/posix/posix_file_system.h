#pragma once

#include <memory>

#include "platform/file_system.h"
#include "platform/posix/file_copier.h"
#include "platform/posix/listing_ahead.h"

namespace platform::posix {

/// The file system of Linux. To be used from one thread; folders may outlive it.
class PosixFileSystem : public FileSystem {
 public:
  Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path) override;
  void ExpectFolder(const std::string& path) override;
  Result<Entry> Look(const std::string& path) override;
  Result<std::string> RealPath(const std::string& path) override;
  std::optional<FolderIdentity> IdentityOf(const std::string& path) override;
  Result<CopyOutcome> CopyFile(const Folder& source, const Entry& file, Folder& target, TargetName name,
                               const CopyWatcher& watcher) override;
  void ExpectCopies(const Folder& source, const std::vector<const Entry*>& files) override;
  Status CreateFolder(const std::string& path) override;
  Status RemoveFile(const std::string& path) override;
  Result<Attributes> GetAttributes(const std::string& path) override;
  Status SetAttributes(const std::string& path, Attributes attributes) override;
  Result<DiskSpace> Space(const std::string& path) override;
  std::int64_t LargestFile(const std::string& path) override;
  std::string DriveOf(const std::string& path) override;
  Result<std::string> ReadFile(const std::string& path, std::int64_t limit) override;
  Status WriteFile(const std::string& path, const std::string& content) override;
  Status ReplaceFile(const std::string& path, const std::string& content) override;
  Status Flush(const std::string& path, const Waiting& waiting) override;
  std::string NameKey(const std::string& name) const override;

 private:
  FileCopier copier_;
  ListingAhead listing_ahead_;
};

}  // namespace platform::posix
