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

class PosixReadableFile : public ReadableFile {
 public:
  explicit PosixReadableFile(FileDescriptor handle) : handle_(std::move(handle)) {}

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

 private:
  FileDescriptor handle_;
};

}  // namespace

Result<std::unique_ptr<ReadableFile>> OpenToRead(const Folder& folder, const Entry& file) {
  const int place = static_cast<const PosixFolder&>(folder).handle();
  // Not blocking, should a pipe have taken the file's place.
  FileDescriptor handle(openat(place, file.name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!handle) return LastError();
  if (file.size >= kLongFile) posix_fadvise(handle.get(), 0, 0, POSIX_FADV_SEQUENTIAL);
  return std::unique_ptr<ReadableFile>(std::make_unique<PosixReadableFile>(std::move(handle)));
}

}  // namespace platform::posix
