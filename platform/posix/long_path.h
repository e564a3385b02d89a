#pragma once

#include <fcntl.h>
#include <sys/types.h>

#include <string>

#include "platform/posix/file_descriptor.h"
#include "platform/result.h"

/// Paths that are longer than one call of the system takes (PATH_MAX, 4,096 bytes on Linux).
namespace platform::posix {

/// A path as the calls of the "at" family take it: the path itself in most cases; for a longer one an open
/// folder on the way and the rest of the path from there.
struct ReachedPath {
  FileDescriptor folder;
  const char* rest;  ///< a part of the path that was given to Reach()

  int at() const { return folder ? folder.get() : AT_FDCWD; }
};

/// Opens as many folders on the way as the length of `path` asks for, most often none. `path` must outlive
/// the result.
Result<ReachedPath> Reach(const std::string& path);

/// open() for a path of any length; O_CLOEXEC is added. `mode` is used with O_CREAT only.
Result<FileDescriptor> OpenPath(const std::string& path, int flags, mode_t mode = 0);

/// The path under which an open file can be reached, also one that was opened with O_PATH (proc(5)).
std::string PathOfDescriptor(int descriptor);

}  // namespace platform::posix
