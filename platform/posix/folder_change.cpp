#include "platform/posix/folder_change.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/file_system.h"
#include "platform/posix/long_path.h"
#include "platform/posix/posix_error.h"

namespace platform::posix {
namespace {

constexpr mode_t kEverybody = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t kKept = S_ISUID | S_ISGID | S_ISVTX;  ///< handed down by the folder above

/// The owner's alone where that cannot be told.
mode_t ModeOf(const std::string& folder) {
  const auto place = Reach(folder);
  struct stat facts = {};
  if (!place || fstatat(place->at(), place->rest, &facts, 0) != 0) return S_IRWXU;
  return (facts.st_mode & kEverybody) | S_IRWXU;
}

/// What the process's mask took away at the making. A volume without permissions refuses that.
void GiveMode(const std::string& path, mode_t mode) {
  const auto folder = OpenPath(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
  struct stat facts = {};
  if (!folder || fstat(folder->get(), &facts) != 0 || (mode & ~facts.st_mode) == 0) return;
  static_cast<void>(fchmod(folder->get(), mode | (facts.st_mode & kKept)) == 0);
}

/// Only where nothing bears the new name, as far as the volume can tell that.
bool Rename(int folder, const std::string& from, const std::string& to) {
  if (renameat2(folder, from.c_str(), folder, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  if (faccessat(folder, to.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
    errno = EEXIST;
    return false;
  }
  return renameat(folder, from.c_str(), folder, to.c_str()) == 0;
}

}  // namespace

Status MakeFolder(const std::string& path, const std::string& like) {
  const auto place = Reach(path);
  if (!place) return place.error();
  const mode_t mode = like.empty() ? kEverybody : ModeOf(like);
  if (mkdirat(place->at(), place->rest, mode) != 0) return LastNameError();
  if (!like.empty()) GiveMode(path, mode);
  return Done{};
}

/// In two steps: from a name to another spelling of it the system sees no change and does nothing.
Status Respell(const std::string& folder, const std::string& from, const std::string& to) {
  const auto place = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  if (!place) return place.error();
  const std::string between = MakeTemporaryName();
  if (!Rename(place->get(), from, between)) return LastNameError();
  if (Rename(place->get(), between, to)) return Done{};
  const Error error = LastNameError();
  static_cast<void>(Rename(place->get(), between, from));
  return error;
}

}  // namespace platform::posix
