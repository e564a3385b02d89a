#pragma once

#include <cstdint>
#include <string>

#include "platform/result.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// The file that a copy is made of, open for reading.
class SourceFile {
 public:
  /// Follows a link. kInUse when another program keeps the file to itself.
  static Result<SourceFile> Open(const std::wstring& long_path);

  /// Times and attribute bits when the file was opened, or when Refresh() was called last.
  const FILE_BASIC_INFO& info() const { return info_; }
  Status Refresh();

  /// Whether the file has more than its bytes: further data streams, holes, encryption. Only the system's own
  /// copy carries these over.
  bool IsMoreThanBytes() const;

  /// Reads on; fewer bytes than asked for only at the file's end.
  Result<std::size_t> Read(char* buffer, std::size_t size);

 private:
  FileHandle file_;
  FILE_BASIC_INFO info_{};
};

}  // namespace platform::windows
