#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/posix/file_descriptor.h"

namespace platform::posix {

/// An open folder and its listing.
class PosixFolder : public Folder {
 public:
  /// Opens and lists the folder at `path`; see FileSystem::OpenFolder().
  static Result<std::unique_ptr<PosixFolder>> Open(const std::string& path, FollowLinks links);

  int handle() const { return handle_.get(); }

 private:
  PosixFolder(std::string path, FileDescriptor handle, bool is_link);
  void Identify();
  Status List();
  void Take(const char* block, std::size_t length);

  FileDescriptor handle_;
};

}  // namespace platform::posix
