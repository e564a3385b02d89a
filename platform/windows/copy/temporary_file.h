#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/file_system.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// A file on its way to its final name: created under a temporary one in the same folder, and removed again
/// unless Publish() succeeds. One handle serves from creation to the final step; others may read, rename and
/// delete the file meanwhile.
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

  /// The present length in bytes. Write() goes on there from now on.
  Result<std::int64_t> GoToEnd();

  /// Gives the file its final name in one atomic step, in place of a file that has it; with
  /// TargetName::kFree only where nothing does, else kNameTaken.
  Status Publish(const std::wstring& final_path, TargetName listed);

  /// Dates the birth of the file now, if it is still open: with a name the system may have handed down that
  /// of the file which bore it up to 15 seconds before ("tunneling"; FAT keeps no other time that tells).
  void DateBirth() const;

  /// Opens the published file once more, to be flushed.
  Status Reopen(const std::wstring& final_path);

  /// Lets go of the file, which stays where it was published.
  void Close() { file_.Reset(); }

 private:
  explicit TemporaryFile(std::wstring path) : path_(std::move(path)) {}

  std::wstring path_;  ///< empty once there is nothing left to remove
  FileHandle file_;
};

}  // namespace platform::windows
