#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/file_system.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// A file on its way to its final name: created under a temporary one in the same folder, and removed again
/// unless Publish() succeeds. One handle serves from creation to the final step.
class TemporaryFile {
 public:
  /// `folder` is in the long form and ends in a separator.
  static Result<TemporaryFile> Create(const std::wstring& folder);

  /// Only takes a name; the file is made by somebody else and then opened by Open().
  static TemporaryFile Reserve(const std::wstring& folder);

  TemporaryFile(TemporaryFile&& other) noexcept;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile();

  const std::wstring& path() const { return path_; }
  const FileHandle& file() const { return file_; }

  /// Opens a reserved file, which is no longer read-only then.
  Status Open();

  Status Write(const char* data, std::size_t size);

  /// kShort unless the file is so long.
  Status CheckLength(std::int64_t length) const;

  /// Returns when the data is on the disk.
  Status WriteOut() const;

  /// Gives the file its final name in one atomic step, in place of a file that bears it; with
  /// TargetName::kFree only where nothing does, else kNameTaken.
  Status Publish(const std::wstring& final_path, TargetName listed);

 private:
  explicit TemporaryFile(std::wstring path) : path_(std::move(path)) {}

  std::wstring path_;  ///< empty once there is nothing left to remove
  FileHandle file_;
};

}  // namespace platform::windows
