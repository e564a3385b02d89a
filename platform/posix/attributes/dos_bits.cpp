#include "platform/posix/attributes/dos_bits.h"

#include <linux/magic.h>
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/xattr.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string>

#include "platform/posix/attributes/dos_attributes.h"
#include "platform/posix/system_error.h"
#include "platform/posix/volume/volume_kind.h"

namespace platform::posix {
namespace {

constexpr const char* kUserName = "user.DOSATTRIB";
constexpr const char* kNtfsName = "system.ntfs_attrib";
constexpr const char* kServerName = "user.cifs.dosattrib";
constexpr std::size_t kLongestValue = 256;

constexpr Attributes kBits = kHidden | kSystem;
/// To a server no bit at all means that they are to stay as they are.
constexpr std::uint32_t kNoBits = 0x80;

std::string ReadUserValue(int file) {
  std::array<char, kLongestValue> buffer = {};
  const ssize_t length = fgetxattr(file, kUserName, buffer.data(), buffer.size());
  return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

Status WriteUserValue(int file, const std::string& value) {
  if (fsetxattr(file, kUserName, value.data(), value.size(), 0) != 0) return LastError();
  return Done{};
}

const char* NameOfNumber(DosBitsPlace place) {
  return place == DosBitsPlace::kNtfs ? kNtfsName : kServerName;
}

/// All bits of the file, with the values that Windows gives them.
std::optional<std::uint32_t> ReadNumber(int file, DosBitsPlace place) {
  std::uint32_t number = 0;
  const bool read = place == DosBitsPlace::kFat
                        ? ioctl(file, FAT_IOCTL_GET_ATTRIBUTES, &number) == 0
                        : fgetxattr(file, NameOfNumber(place), &number, sizeof number) == sizeof number;
  return read ? std::optional(number) : std::nullopt;
}

Status WriteNumber(int file, DosBitsPlace place, std::uint32_t number) {
  if (place == DosBitsPlace::kServer && number == 0) number = kNoBits;
  const int done = place == DosBitsPlace::kFat
                       ? ioctl(file, FAT_IOCTL_SET_ATTRIBUTES, &number)
                       : fsetxattr(file, NameOfNumber(place), &number, sizeof number, 0);
  if (done != 0) return LastError();
  return Done{};
}

/// One driver for NTFS takes a system file of no byte for a pipe and one of a single byte for a socket, as
/// old versions of Windows kept these there.
bool WouldBecomeSpecial(int file, DosBitsPlace place, Attributes attributes) {
  struct stat facts = {};
  return place == DosBitsPlace::kNtfs && (attributes & kSystem) != 0 &&
         (fstat(file, &facts) != 0 || facts.st_size <= 1);
}

}  // namespace

DosBitsPlace PlaceOfDosBits(int file) {
  std::uint32_t number = 0;
  switch (MagicOf(file)) {
    case MSDOS_SUPER_MAGIC:
    case kExfat:
      return DosBitsPlace::kFat;
    case kNtfs3:
      return DosBitsPlace::kNtfs;
    case FUSE_SUPER_MAGIC:
      return fgetxattr(file, kNtfsName, &number, sizeof number) == sizeof number
                 ? DosBitsPlace::kNtfs
                 : DosBitsPlace::kUserAttribute;
    case SMB_SUPER_MAGIC:
    case kCifs:
    case kSmb2:
      return DosBitsPlace::kServer;
    default:
      return DosBitsPlace::kUserAttribute;
  }
}

Attributes ReadDosBits(int file, DosBitsPlace place) {
  if (place == DosBitsPlace::kUserAttribute) return BitsOfDosAttribute(ReadUserValue(file));
  return ReadNumber(file, place).value_or(0) & kBits;
}

Status WriteDosBits(int file, DosBitsPlace place, Attributes attributes) {
  if (place == DosBitsPlace::kUserAttribute)
    return WriteUserValue(file, WithDosBits(ReadUserValue(file), attributes));
  if (WouldBecomeSpecial(file, place, attributes)) return ErrorOf(EOPNOTSUPP);
  const auto number = ReadNumber(file, place);
  if (!number) return LastError();
  return WriteNumber(file, place, (*number & ~kBits) | (attributes & kBits));
}

}  // namespace platform::posix
