#include "platform/posix/copy/temporary_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <mutex>

#include "platform/file_system.h"
#include "platform/posix/system_error.h"

namespace platform::posix {

Status TemporaryFile::Create(int folder, mode_t mode) {
  folder_ = folder;
  std::string name;
  do {
    name = MakeTemporaryName();
    handle_.Reset(openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
  } while (!handle_ && errno == EEXIST);
  if (!handle_) return LastError();
  temporary_ = std::move(name);
  return Done{};
}

Status TemporaryFile::Flush() const {
  if (fdatasync(handle()) == 0 || errno == EINVAL || errno == ENOSYS) return Done{};
  return LastError();
}

Status TemporaryFile::Close() {
  if (close(handle_.Release()) != 0 && errno != EINTR) return LastError();
  return Done{};
}

Status TemporaryFile::Publish(const std::string& name, TargetName listed) {
  if (Rename(name.c_str(), listed)) {
    temporary_.clear();
    return Done{};
  }
  Error error = LastNameError();
  if (error.kind == ErrorKind::kAlreadyExists) error.kind = ErrorKind::kNameTaken;
  return error;
}

bool TemporaryFile::Rename(const char* name, TargetName listed) const {
  if (listed == TargetName::kFree) {
    if (renameat2(folder_, temporary_.c_str(), folder_, name, RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // The volume knows no such renaming. Of two copies of this program whose names the volume takes for one,
    // the second is to see the first.
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    if (faccessat(folder_, name, F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
      errno = EEXIST;
      return false;
    }
    return renameat(folder_, temporary_.c_str(), folder_, name) == 0;
  }
  return renameat(folder_, temporary_.c_str(), folder_, name) == 0;
}

void TemporaryFile::Discard() {
  handle_.Reset(-1);
  if (!temporary_.empty()) unlinkat(folder_, temporary_.c_str(), 0);
}

}  // namespace platform::posix
