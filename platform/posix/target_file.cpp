#include "platform/posix/target_file.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/statfs.h>
#include <unistd.h>

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

Error PublishError() {
  Error error = LastNameError();
  if (error.kind == ErrorKind::kAlreadyExists) error.kind = ErrorKind::kNameTaken;
  return error;
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

/// The kernel's admin-guide/ext4 promises that for the mount option auto_da_alloc, which is on unless it is
/// switched off.
bool TargetFile::NeedsWriteOut() const {
  struct statfs facts = {};
  return fstatfs(handle(), &facts) != 0 || facts.f_type != EXT4_SUPER_MAGIC;
}

Status TargetFile::WriteOut() const {
  if (fdatasync(handle()) == 0) return Done{};
  // What cannot be flushed one by one is left to the end of the run.
  if (errno == EINVAL || errno == ENOSYS) return Done{};
  return LastError();
}

Status TargetFile::Publish(const std::string& name, TargetName listed) {
  return temporary_.empty() ? LinkTo(name, listed) : RenameTo(name, listed);
}

Status TargetFile::LinkTo(const std::string& name, TargetName listed) {
  if (LinkDescriptor(handle(), folder_, name.c_str())) return Done{};
  if (errno != EEXIST || listed == TargetName::kFree) return PublishError();
  std::string between = MakeTemporaryName();
  if (!LinkDescriptor(handle(), folder_, between.c_str())) return LastError();
  temporary_ = std::move(between);
  return RenameTo(name, listed);
}

Status TargetFile::RenameTo(const std::string& name, TargetName listed) {
  if (Status closed = Close(); !closed) return closed;
  if (!Rename(name.c_str(), listed)) return PublishError();
  temporary_.clear();
  return Done{};
}

/// Before the file gets its name: a network volume tells only then that it had no room for the data.
Status TargetFile::Close() {
  if (close(handle_.Release()) != 0 && errno != EINTR) return LastError();
  return Done{};
}

bool TargetFile::Rename(const char* name, TargetName listed) const {
  if (listed == TargetName::kFree) {
    if (renameat2(folder_, temporary_.c_str(), folder_, name, RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // The volume knows no such renaming.
    if (faccessat(folder_, name, F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
      errno = EEXIST;
      return false;
    }
  }
  return renameat(folder_, temporary_.c_str(), folder_, name) == 0;
}

void TargetFile::Discard() {
  if (!temporary_.empty()) unlinkat(folder_, temporary_.c_str(), 0);
}

}  // namespace platform::posix
