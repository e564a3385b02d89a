#include "platform/posix/attributes/attribute_change.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/posix/attributes/dos_bits.h"
#include "platform/posix/listing/file_facts.h"
#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

constexpr mode_t kModeBits = 07777;

Status ChangeMode(const std::string& path, mode_t mode) {
  if (chmod(path.c_str(), mode) != 0) return LastError();
  return Done{};
}

/// Opens for reading or, where that is not allowed, for writing.
Result<FileDescriptor> OpenForBits(const std::string& path) {
  constexpr int kFlags = O_NONBLOCK | O_NOCTTY;
  auto file = OpenPath(path, O_RDONLY | kFlags);
  return file ? std::move(file) : OpenPath(path, O_WRONLY | kFlags);
}

Attributes DosBitsOf(const std::string& path) {
  const auto file = OpenForBits(path);
  return file ? ReadDosBits(file->get(), PlaceOfDosBits(file->get())) : 0;
}

Status ChangeDosBits(const std::string& path, Attributes attributes) {
  const auto file = OpenForBits(path);
  return file ? WriteDosBits(file->get(), PlaceOfDosBits(file->get()), attributes) : Status(file.error());
}

}  // namespace

Result<Attributes> ReadAttributes(const std::string& path) {
  const auto file = OpenPath(path, O_PATH);
  if (!file) return file.error();
  struct stat facts = {};
  if (fstat(file->get(), &facts) != 0) return LastError();
  return AttributesOf(facts) | DosBitsOf(PathOfDescriptor(file->get()));
}

Status ChangeAttributes(const std::string& path, Attributes attributes) {
  const auto file = OpenPath(path, O_PATH);
  if (!file) return file.error();
  struct stat facts = {};
  if (fstat(file->get(), &facts) != 0) return LastError();
  const std::string place = PathOfDescriptor(file->get());
  mode_t mode = facts.st_mode & kModeBits;

  if (DosBitsOf(place) != (attributes & (kHidden | kSystem))) {
    // They are changed with the right to write, which the owner of a read-only file lacks.
    if ((mode & S_IWUSR) == 0) {
      if (Status opened = ChangeMode(place, mode | S_IWUSR); !opened) return opened;
      mode |= S_IWUSR;
    }
    if (Status written = ChangeDosBits(place, attributes); !written) {
      static_cast<void>(ChangeMode(place, facts.st_mode & kModeBits));
      return written;
    }
  }
  const mode_t wanted = (attributes & kReadOnly) != 0 ? mode & ~static_cast<mode_t>(S_IWUSR) : mode | S_IWUSR;
  return wanted == mode ? Status(Done{}) : ChangeMode(place, wanted);
}

}  // namespace platform::posix
