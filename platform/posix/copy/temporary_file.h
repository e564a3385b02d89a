#pragma once

#include <string>

#include "platform/copier.h"
#include "platform/posix/file_descriptor.h"
#include "platform/result.h"

namespace platform::posix {

/// A file on its way to its final name in an open folder, under a temporary name. Unless it was published, it
/// vanishes with the object.
class TemporaryFile {
 public:
  TemporaryFile() = default;
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { Discard(); }

  /// Creates the file in `folder`, empty, for writing. The process's file mode mask applies to `mode`. The
  /// folder must stay open.
  Status Create(int folder, mode_t mode);

  int handle() const { return handle_.get(); }
  /// Empty while there is none.
  const std::string& temporary_name() const { return temporary_; }

  /// Returns when the data is on the disk. Does nothing where a volume cannot flush a single file.
  Status Flush() const;

  /// Before the file gets its name: a network volume tells only then that it had no room for the data.
  Status Close();

  /// Gives the closed file its final name, in place of what has it; with TargetName::kFree only where
  /// nothing does, else kNameTaken.
  Status Publish(const std::string& name, TargetName listed);

 private:
  bool Rename(const char* name, TargetName listed) const;
  void Discard();

  FileDescriptor handle_;
  int folder_ = -1;  ///< not owned
  std::string temporary_;
};

}  // namespace platform::posix
