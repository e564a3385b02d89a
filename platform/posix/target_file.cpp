#include "platform/posix/target_file.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>

#include "platform/file_system.h"
#include "platform/posix/long_path.h"
#include "platform/posix/posix_error.h"

namespace platform::posix {
namespace {

/// Gives an unnamed file a name. By its descriptor this takes Linux 6.10 or privileges; the way through /proc
/// works everywhere and takes longer.
bool LinkDescriptor(int file, int folder, const char* name) {
  if (linkat(file, "", folder, name, AT_EMPTY_PATH) == 0) return true;
  if (errno == EEXIST) return false;
  return linkat(AT_FDCWD, PathOfDescriptor(file).c_str(), folder, name, AT_SYMLINK_FOLLOW) == 0;
}

}  // namespace

Status TargetFile::Create(PosixFolder& folder, mode_t mode) {
  if (folder.UsesUnnamedFiles()) {
    handle_.Reset(openat(folder.handle(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
    if (handle_) {
      folder_ = folder.handle();
      return Done{};
    }
    folder.ForgoUnnamedFiles();
  }
  return CreateNamed(folder.handle(), mode);
}

Status TargetFile::CreateNamed(int folder, mode_t mode) {
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

Status TargetFile::Publish(const std::string& name) {
  return temporary_.empty() ? LinkTo(name) : RenameTo(name);
}

Status TargetFile::LinkTo(const std::string& name) {
  if (LinkDescriptor(handle(), folder_, name.c_str())) return Done{};
  if (errno != EEXIST) return LastNameError();
  std::string between = MakeTemporaryName();
  if (!LinkDescriptor(handle(), folder_, between.c_str())) return LastError();
  temporary_ = std::move(between);
  return RenameTo(name);
}

Status TargetFile::RenameTo(const std::string& name) {
  // Closing first: a network volume tells only then that it had no room for the data.
  if (close(handle_.Release()) != 0 && errno != EINTR) return LastError();
  if (renameat(folder_, temporary_.c_str(), folder_, name.c_str()) != 0) return LastNameError();
  temporary_.clear();
  return Done{};
}

void TargetFile::Discard() {
  if (!temporary_.empty()) unlinkat(folder_, temporary_.c_str(), 0);
}

}  // namespace platform::posix
