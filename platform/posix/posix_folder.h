#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/posix/file_descriptor.h"

namespace platform::posix {

/// An open folder and its listing.
class PosixFolder : public Folder {
 public:
  /// Opens and lists the folder at `path`.
  static Result<std::unique_ptr<PosixFolder>> Open(const std::string& path);

  int handle() const { return handle_->get(); }

  /// For a reader in the background: it may still be reading when the folder is closed.
  const std::shared_ptr<const FileDescriptor>& shared_handle() const { return handle_; }

  /// Whether files without a name are worth trying here; ForgoUnnamedFiles() when the volume refused one.
  /// They take the place of temporary names as long as every file is new, that is where the listing was
  /// empty.
  bool UsesUnnamedFiles() const { return uses_unnamed_files_; }
  void ForgoUnnamedFiles() { uses_unnamed_files_ = false; }

 private:
  PosixFolder(std::string path, FileDescriptor handle);
  void Identify();
  Status List();
  void Take(const char* block, std::size_t length);

  std::shared_ptr<const FileDescriptor> handle_;
  bool uses_unnamed_files_ = false;
};

}  // namespace platform::posix
