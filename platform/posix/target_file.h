#pragma once

#include <string>

#include "platform/posix/file_descriptor.h"
#include "platform/posix/posix_folder.h"
#include "platform/result.h"

namespace platform::posix {

/// A file on its way to its final name in an open folder: without any name where the volume can (nothing is
/// left over then, whatever happens), under a temporary name else. Unless it was published, it vanishes with
/// the object.
class TargetFile {
 public:
  TargetFile() = default;
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;
  ~TargetFile() { Discard(); }

  /// Creates the file in `folder`, empty, for writing. The process's file mode mask applies to `mode`.
  Status Create(PosixFolder& folder, mode_t mode);

  /// As above in any open folder, always under a temporary name.
  Status CreateNamed(int folder, mode_t mode);

  int handle() const { return handle_.get(); }

  /// Whether WriteOut() is to be called before the file replaces another one: ext4 sees to that itself.
  bool NeedsWriteOut() const;
  /// Returns when the data is on the disk.
  Status WriteOut() const;

  /// Gives the file its final name, in place of what bears it; with TargetName::kFree only where nothing
  /// does, else kNameTaken.
  Status Publish(const std::string& name, TargetName listed);

 private:
  Status LinkTo(const std::string& name, TargetName listed);
  Status RenameTo(const std::string& name, TargetName listed);
  Status Close();
  bool Rename(const char* name, TargetName listed) const;
  void Discard();

  FileDescriptor handle_;
  int folder_ = -1;        ///< not owned
  std::string temporary_;  ///< the temporary name; empty while there is none
};

}  // namespace platform::posix
