#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace platform::windows {

/// The file system of Windows.
///
/// A copy is flushed before it replaces an older one: whenever the power fails, one of the two is there
/// whole. A copy under a new name is not, which would take longer than to copy it: until Flush() has written
/// it out, a power cut may leave it incomplete.
///
/// What Flush() can promise depends on the user's rights. Whoever may open the volume (administrators) has
/// all of it written out. For everybody else Windows flushes single files only. Then the copies of the last
/// 15 seconds are written out one by one, the newest first and for about a second, and the disk is told to
/// empty its own cache. The others are left to the system, whose lazy writer hands an eighth of the changed
/// pages to the disk each second. That is no promise.
class WindowsFileSystem : public FileSystem {
 public:
  WindowsFileSystem();
  ~WindowsFileSystem() override;

  Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path) override;
  Result<Entry> Look(const std::string& path) override;
  Result<std::string> RealPath(const std::string& path) override;
  Result<CopyOutcome> CopyFile(const Folder& source, const Entry& file, Folder& target, TargetName name,
                               const CopyWatcher& watcher) override;
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
  /// In upper case, letter by letter, as NTFS compares names.
  std::string NameKey(const std::string& name) const override;

 private:
  struct State;

  /// The long form of a path or, where a link stands there, of what it leads to.
  std::wstring BehindLink(const std::string& path);

  std::unique_ptr<State> state_;
};

}  // namespace platform::windows
