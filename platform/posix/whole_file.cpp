#include "platform/posix/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/path.h"
#include "platform/posix/copy/temporary_file.h"
#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

constexpr mode_t kNewFile = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

Status FlushHandle(int file) {
  if (fsync(file) != 0) return LastError();
  return Done{};
}

}  // namespace

Status WriteAll(int file, std::span<const char> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written == 0) return ErrorOf(ENOSPC);
    if (written > 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return LastError();
    }
  }
  return Done{};
}

Result<std::string> ReadWhole(const std::string& path, std::int64_t limit) {
  const auto file = OpenPath(path, O_RDONLY | O_NONBLOCK);
  if (!file) return file.error();
  std::string content;
  std::array<char, std::size_t{16}* 1024> block = {};
  for (;;) {
    const ssize_t length = read(file->get(), block.data(), block.size());
    if (length < 0 && errno == EINTR) continue;
    if (length < 0) return LastError();
    if (length == 0) return content;
    content.append(block.data(), static_cast<std::size_t>(length));
    if (static_cast<std::int64_t>(content.size()) > limit) return ErrorOf(EFBIG);
  }
}

namespace {

Status WriteAndClose(FileDescriptor& file, const std::string& content) {
  if (Status written = WriteAll(file.get(), content); !written) return written;
  if (close(file.Release()) != 0 && errno != EINTR) return LastError();
  return Done{};
}

}  // namespace

Status CreateWhole(const std::string& path, const std::string& content) {
  auto file = OpenPath(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, kNewFile);
  if (!file) return file.error();
  const Status written = WriteAndClose(*file, content);
  if (const auto place = Reach(path); !written && place) unlinkat(place->at(), place->rest, 0);
  return written;
}

Status WriteWhole(const std::string& path, const std::string& content) {
  auto file = OpenPath(path, O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK, kNewFile);
  if (!file) return file.error();
  return WriteAndClose(*file, content);
}

Status ReplaceWhole(const std::string& path, const std::string& content) {
  const auto folder = OpenPath(ParentOf(path, PathStyle::kPosix), O_RDONLY | O_DIRECTORY);
  if (!folder) return folder.error();
  const std::string name(NameOf(path, PathStyle::kPosix));

  struct stat old = {};
  const bool replaces = fstatat(folder->get(), name.c_str(), &old, 0) == 0;
  TemporaryFile file;
  if (Status created = file.Create(folder->get(), kNewFile); !created) return created;
  // Who may read the old file may read the new one; a volume without permissions may refuse.
  if (replaces) static_cast<void>(fchmod(file.handle(), old.st_mode & kNewFile));
  if (Status written = WriteAll(file.handle(), content); !written) return written;
  if (Status flushed = FlushHandle(file.handle()); !flushed) return flushed;
  if (Status closed = file.Close(); !closed) return closed;
  if (Status published = file.Publish(name, TargetName::kTaken); !published) return published;
  // The new content is there; a volume whose folders cannot be flushed takes nothing of that back.
  static_cast<void>(FlushHandle(folder->get()));
  return Done{};
}

}  // namespace platform::posix
