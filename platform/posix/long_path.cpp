#include "platform/posix/long_path.h"

#include <chrono>
#include <list>
#include <mutex>
#include <utility>

#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

using SharedFolder = std::shared_ptr<const FileDescriptor>;
using SteadyClock = std::chrono::steady_clock;

/// The bytes from one folder that is kept open to the next.
constexpr std::size_t kStride = 1024;
constexpr std::size_t kMostKept = 64;
/// Folders above may be renamed, and others take their place.
constexpr std::chrono::seconds kKeptFor{1};

/// Folders on the way of long paths, the latest first. For all threads.
class Ways {
 public:
  SharedFolder Find(const std::string& path) {
    const std::lock_guard lock(mutex_);
    while (!ways_.empty() && SteadyClock::now() - ways_.back().opened > kKeptFor) ways_.pop_back();
    for (const Way& way : ways_) {
      if (way.path == path) return way.folder;
    }
    return nullptr;
  }
  void Keep(const std::string& path, SharedFolder folder) {
    const std::lock_guard lock(mutex_);
    ways_.push_front({path, std::move(folder), SteadyClock::now()});
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

Result<SharedFolder> OpenWay(const std::string& path) {
  if (SharedFolder known = KnownWays().Find(path)) return known;
  auto opened = OpenPath(path, O_PATH | O_DIRECTORY);
  if (!opened) return opened.error();
  auto folder = std::make_shared<const FileDescriptor>(std::move(*opened));
  KnownWays().Keep(path, folder);
  return SharedFolder(std::move(folder));
}

}  // namespace

Result<ReachedPath> Reach(const std::string& path) {
  ReachedPath reached{{}, path.c_str()};
  if (path.size() < 2 * kStride) return reached;
  const std::size_t slash = path.rfind('/', (path.size() / kStride - 1) * kStride);
  if (slash == std::string::npos || slash == 0) return reached;
  auto way = OpenWay(path.substr(0, slash));
  if (!way) return way.error();
  reached.folder = std::move(*way);
  reached.rest = path.c_str() + slash + 1;
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
