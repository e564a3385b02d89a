#include "platform/posix/listing/readable_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/posix/file_descriptor.h"
#include "platform/posix/listing/file_facts.h"
#include "platform/posix/listing/folder.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

/// From here on the system does well to read further ahead than usual.
constexpr std::int64_t kLongFile = std::int64_t{1} << 20;

/// How much of a file is asked for before it is read.
constexpr std::int64_t kStart = std::int64_t{1} << 20;

}  // namespace

void PrefetchStart(int handle) { posix_fadvise(handle, 0, kStart, POSIX_FADV_WILLNEED); }

namespace {

class PosixReadableFile : public ReadableFile {
 public:
  explicit PosixReadableFile(FileDescriptor handle) : handle_(std::move(handle)) {}

  void Prefetch() override { PrefetchStart(handle_.get()); }

  Result<std::size_t> Read(std::span<char> room) override {
    for (;;) {
      const ssize_t length = read(handle_.get(), room.data(), room.size());
      if (length >= 0) return static_cast<std::size_t>(length);
      if (errno != EINTR) return LastError();
    }
  }

  bool IsAsListed(const Entry& entry) const override {
    struct stat facts = {};
    return fstat(handle_.get(), &facts) == 0 && facts.st_size == entry.size &&
           ModifiedOf(facts) == entry.modified;
  }

 protected:
  int handle() const { return handle_.get(); }

 private:
  FileDescriptor handle_;
};

/// On ext4, XFS and btrfs not a page of a flushed file is left. Reading past the memory by O_DIRECT instead
/// takes twice as long with many small files, and on some volumes is quietly answered from memory after all.
void DropFromMemory(int handle) { posix_fadvise(handle, 0, 0, POSIX_FADV_DONTNEED); }

class FileReadBack : public PosixReadableFile {
 public:
  explicit FileReadBack(FileDescriptor file) : PosixReadableFile(std::move(file)) {
    DropFromMemory(handle());
    posix_fadvise(handle(), 0, 0, POSIX_FADV_SEQUENTIAL);
  }
  ~FileReadBack() override { DropFromMemory(handle()); }
};

FileDescriptor OpenInFolder(int folder, const std::string& name) {
  return FileDescriptor(openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
}

/// A copy may have permissions like its source that forbid even its owner to read it.
FileDescriptor OpenForbidden(int folder, const std::string& name) {
  struct stat facts = {};
  if (fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) return {};
  const mode_t mode = facts.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
  if (fchmodat(folder, name.c_str(), mode | S_IRUSR, 0) != 0) return {};
  FileDescriptor handle = OpenInFolder(folder, name);
  if (handle && fchmod(handle.get(), mode) != 0) return {};
  return handle;
}

}  // namespace

FileDescriptor OpenListed(const PosixFolder& folder, const Entry& file) {
  // Not blocking, should a pipe have taken the file's place.
  constexpr int kFlags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  return FileDescriptor(openat(folder.handle(), file.name.c_str(), kFlags));
}

Result<std::unique_ptr<ReadableFile>> OpenToRead(const Folder& folder, const Entry& file) {
  FileDescriptor handle = OpenListed(static_cast<const PosixFolder&>(folder), file);
  if (!handle) return LastError();
  if (file.size >= kLongFile) posix_fadvise(handle.get(), 0, 0, POSIX_FADV_SEQUENTIAL);
  return std::unique_ptr<ReadableFile>(std::make_unique<PosixReadableFile>(std::move(handle)));
}

Result<std::unique_ptr<ReadableFile>> OpenToReadBack(int folder, const std::string& name) {
  FileDescriptor handle = OpenInFolder(folder, name);
  if (!handle && errno == EACCES) handle = OpenForbidden(folder, name);
  if (!handle) return LastError();
  return std::unique_ptr<ReadableFile>(std::make_unique<FileReadBack>(std::move(handle)));
}

}  // namespace platform::posix
