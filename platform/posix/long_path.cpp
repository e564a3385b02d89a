#include "platform/posix/long_path.h"

#include <climits>

#include "platform/posix/posix_error.h"

namespace platform::posix {

Result<ReachedPath> Reach(const std::string& path) {
  ReachedPath reached{{}, path.c_str()};
  std::size_t start = 0;
  while (path.size() - start >= PATH_MAX) {
    const std::size_t slash = path.rfind('/', start + PATH_MAX - 2);
    if (slash == std::string::npos || slash <= start) return ErrorOf(ENAMETOOLONG);
    const std::string part = path.substr(start, slash - start);
    FileDescriptor next(openat(reached.at(), part.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!next) return LastError();
    reached.folder = std::move(next);
    start = slash + 1;
    reached.rest = path.c_str() + start;
  }
  return reached;
}

Result<FileDescriptor> OpenPath(const std::string& path, int flags, mode_t mode) {
  const auto reached = Reach(path);
  if (!reached) return reached.error();
  FileDescriptor file(openat(reached->at(), reached->rest, flags | O_CLOEXEC, mode));
  if (!file) return (flags & O_CREAT) != 0 ? LastNameError() : LastError();
  return file;
}

std::string PathOfDescriptor(int descriptor) { return "/proc/self/fd/" + std::to_string(descriptor); }

}  // namespace platform::posix
