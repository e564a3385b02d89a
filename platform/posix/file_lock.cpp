#include "platform/posix/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

/// Each try but the last found that another program made or removed the file in that moment.
constexpr int kTries = 10;

bool IsAt(const std::string& path, const FileDescriptor& file) {
  const auto place = Reach(path);
  struct stat there = {};
  struct stat held = {};
  return place && fstatat(place->at(), place->rest, &there, AT_SYMLINK_NOFOLLOW) == 0 &&
         fstat(file.get(), &held) == 0 && there.st_dev == held.st_dev && there.st_ino == held.st_ino;
}

void Unlink(const std::string& path) {
  if (const auto place = Reach(path)) unlinkat(place->at(), place->rest, 0);
}

/// The file is removed, where that is allowed, while it is locked, so nobody removes the file of another.
class PosixLock : public FileLock {
 public:
  PosixLock(std::string path, FileDescriptor file) : path_(std::move(path)), file_(std::move(file)) {}
  ~PosixLock() override {
    if (IsAt(path_, file_)) Unlink(path_);
  }
  PosixLock(const PosixLock&) = delete;
  PosixLock& operator=(const PosixLock&) = delete;

 private:
  std::string path_;
  FileDescriptor file_;
};

std::string BeginOf(const FileDescriptor& file) {
  std::array<char, 1024> bytes = {};
  const ssize_t got = pread(file.get(), bytes.data(), bytes.size(), 0);
  return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(got, 0))};
}

/// A network volume locks only what is open for writing; a file of another user may be open for reading only.
Result<FileDescriptor> OpenOld(const std::string& path) {
  constexpr int kFlags = O_NOFOLLOW | O_NONBLOCK;
  auto file = OpenPath(path, O_RDWR | kFlags);
  return file || file.error().kind != ErrorKind::kAccessDenied ? std::move(file)
                                                               : OpenPath(path, O_RDONLY | kFlags);
}

/// For those who find the lock held.
void Write(const FileDescriptor& file, const std::string& content) {
  static_cast<void>(pwrite(file.get(), content.data(), content.size(), 0) == 0);
}

/// The same in the place of what a dead program wrote, unless the file bears another name, too.
void WriteAnew(const FileDescriptor& file, const std::string& content) {
  struct stat facts = {};
  if (fstat(file.get(), &facts) != 0 || facts.st_nlink != 1) return;
  if (ftruncate(file.get(), 0) == 0) Write(file, content);
}

/// What a program left that has died, which nobody has locked, is removed. Where that is not allowed, as with
/// a file of another user, it is given back, locked.
Result<FileDescriptor> RemoveOrTakeDead(const std::string& path) {
  auto old = OpenOld(path);
  if (!old) {
    if (old.error().kind == ErrorKind::kNotFound) return FileDescriptor();
    const bool is_no_file = old.error().code == ELOOP || old.error().code == EISDIR;
    return is_no_file ? ErrorOf(EEXIST) : old.error();
  }
  struct stat facts = {};
  if (fstat(old->get(), &facts) != 0) return LastError();
  if (!S_ISREG(facts.st_mode)) return ErrorOf(EEXIST);
  if (flock(old->get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) return Error{ErrorKind::kInUse, EWOULDBLOCK, BeginOf(*old)};
    return LastError();
  }
  if (IsAt(path, *old)) Unlink(path);
  if (!IsAt(path, *old)) return FileDescriptor();
  return old;
}

}  // namespace

Result<std::unique_ptr<FileLock>> LockAt(const std::string& path, const std::string& content) {
  constexpr mode_t kForAllToRead = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
  for (int i = 0; i < kTries; ++i) {
    auto file = OpenPath(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, kForAllToRead);
    if (!file) {
      if (file.error().kind != ErrorKind::kAlreadyExists) return file.error();
      auto left = RemoveOrTakeDead(path);
      if (!left) return left.error();
      if (!*left) continue;
      WriteAnew(*left, content);
      return std::unique_ptr<FileLock>(std::make_unique<PosixLock>(path, std::move(*left)));
    }
    const bool locked = flock(file->get(), LOCK_EX | LOCK_NB) == 0;
    const int reason = errno;
    if (!locked && reason != EWOULDBLOCK) {
      Unlink(path);
      return ErrorOf(reason);
    }
    if (!locked || !IsAt(path, *file)) continue;
    Write(*file, content);
    return std::unique_ptr<FileLock>(std::make_unique<PosixLock>(path, std::move(*file)));
  }
  return ErrorOf(EBUSY);
}

}  // namespace platform::posix
