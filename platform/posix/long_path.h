#pragma once

#include <fcntl.h>
#include <sys/types.h>

#include <memory>
#include <string>

#include "platform/posix/file_descriptor.h"
#include "platform/result.h"

/// Paths that are long, or longer than one call of the system takes (PATH_MAX, 4,096 bytes on Linux).
namespace platform::posix {

/// A path as the calls of the "at" family take it: the path itself in most cases; for a long one an open
/// folder on the way and the rest of the path from there.
struct ReachedPath {
  std::shared_ptr<const FileDescriptor> folder;
  const char* rest;  ///< a part of the path that was given to Reach()

  int at() const { return folder ? folder->get() : AT_FDCWD; }
};

/// Opens a folder a little above the end of a path of 2,048 bytes or more, and keeps it open for up to a
/// second: the system walks each path from its beginning, and a long one under which there is much would be
/// walked again and again. `path` must outlive the result.
Result<ReachedPath> Reach(const std::string& path);

/// Closes what Reach() keeps open.
void ForgetWays();

/// open() for a path of any length; O_CLOEXEC is added. `mode` is used with O_CREAT only.
Result<FileDescriptor> OpenPath(const std::string& path, int flags, mode_t mode = 0);

/// The path under which an open file can be reached, also one that was opened with O_PATH (proc(5)).
std::string PathOfDescriptor(int descriptor);

}  // namespace platform::posix
