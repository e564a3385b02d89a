#include "platform/posix/long_path.h"

#include <cerrno>
#include <chrono>
#include <list>
#include <mutex>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

using SharedFolder = std::shared_ptr<const FileDescriptor>;
using SteadyClock = std::chrono::steady_clock;

/// Shorter paths are left to the system.
constexpr std::size_t kLong = 2048;
/// The bytes from one folder on the way to the next.
constexpr std::size_t kStride = 256;
constexpr std::size_t kMostKept = 64;
/// Folders above may be renamed, and others take their place.
constexpr std::chrono::seconds kKeptFor{1};

/// Folders on the way of long paths, the last used first. For all threads.
class Ways {
 public:
  SharedFolder Find(std::string_view path) {
    const std::lock_guard lock(mutex_);
    const auto now = SteadyClock::now();
    ways_.remove_if([now](const Way& way) { return now - way.opened > kKeptFor; });
    for (auto way = ways_.begin(); way != ways_.end(); ++way) {
      if (way->path != path) continue;
      ways_.splice(ways_.begin(), ways_, way);
      return way->folder;
    }
    return nullptr;
  }
  void Keep(std::string_view path, SharedFolder folder) {
    const std::lock_guard lock(mutex_);
    ways_.push_front({std::string(path), std::move(folder), SteadyClock::now()});
    if (ways_.size() > kMostKept) ways_.pop_back();
  }
  void Forget() {
    const std::lock_guard lock(mutex_);
    ways_.clear();
  }

 private:
  struct Way {
    std::string path;
    SharedFolder folder;
    SteadyClock::time_point opened;
  };
  std::mutex mutex_;
  std::list<Way> ways_;
};

Ways& KnownWays() {
  static Ways ways;
  return ways;
}

/// Where the last folder on the way to the first `length` bytes of a path ends; 0: there is none.
std::size_t WayEnd(std::string_view path, std::size_t length) {
  if (length < kLong) return 0;
  const std::size_t slash = path.rfind('/', (length / kStride - 1) * kStride);
  return slash == std::string_view::npos ? 0 : slash;
}

/// The first `end` bytes of a path. Those that are opened on the way are not kept: in a deep tree they would
/// drive out the one that the next path needs.
Result<SharedFolder> OpenWay(std::string_view path, std::size_t end) {
  std::vector<std::size_t> ends;
  SharedFolder folder;
  std::size_t done = 0;
  for (std::size_t at = end; at > 0 && !folder; at = WayEnd(path, at)) {
    folder = KnownWays().Find(path.substr(0, at));
    if (folder) {
      done = at + 1;
    } else {
      ends.push_back(at);
    }
  }
  if (ends.empty()) return folder;
  for (; !ends.empty(); ends.pop_back()) {
    const std::string part(path.substr(done, ends.back() - done));
    FileDescriptor next(
        openat(folder ? folder->get() : AT_FDCWD, part.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!next) return LastError();
    folder = std::make_shared<const FileDescriptor>(std::move(next));
    done = ends.back() + 1;
  }
  KnownWays().Keep(path.substr(0, end), folder);
  return folder;
}

}  // namespace

Result<ReachedPath> Reach(const std::string& path) {
  if (path.find('\0') != std::string::npos) return Error{ErrorKind::kBadName, EINVAL, ErrorOf(EINVAL).text};
  ReachedPath reached{{}, path.c_str()};
  const std::size_t end = WayEnd(path, path.size());
  if (end == 0) return reached;
  auto way = OpenWay(path, end);
  if (!way) return way.error();
  reached.folder = std::move(*way);
  reached.rest = path.c_str() + end + 1;
  return reached;
}

void ForgetWays() { KnownWays().Forget(); }

Result<FileDescriptor> OpenPath(const std::string& path, int flags, mode_t mode) {
  const auto reached = Reach(path);
  if (!reached) return reached.error();
  FileDescriptor file(openat(reached->at(), reached->rest, flags | O_CLOEXEC, mode));
  if (!file) return (flags & O_CREAT) != 0 ? LastNameError() : LastError();
  return file;
}

std::string PathOfDescriptor(int descriptor) { return "/proc/self/fd/" + std::to_string(descriptor); }

}  // namespace platform::posix
