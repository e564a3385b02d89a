#include "platform/posix/folder_change.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/file_system.h"
#include "platform/path.h"
#include "platform/posix/listing/folder.h"
#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

constexpr mode_t kEverybody = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t kKept = S_ISUID | S_ISGID | S_ISVTX;  ///< handed down by the folder above

/// The owner's alone where that is not known.
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
  static_cast<void>(fchmod(folder->get(), mode | (facts.st_mode & kKept)));
}

/// Only where nothing has the new name, as far as the volume can tell that.
bool Move(const FileDescriptor& folder, const std::string& from, const FileDescriptor& to_folder,
          const std::string& to) {
  if (renameat2(folder.get(), from.c_str(), to_folder.get(), to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  if (faccessat(to_folder.get(), to.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
    errno = EEXIST;
    return false;
  }
  return renameat(folder.get(), from.c_str(), to_folder.get(), to.c_str()) == 0;
}

/// The kernel remembers for a while that a share has something under a name, also after that was moved away
/// under another spelling; then nothing would move to the name. It asks the server here.
void ForgetName(const FileDescriptor& folder, const std::string& name) {
  struct statx facts = {};
  static_cast<void>(statx(folder.get(), name.c_str(), AT_SYMLINK_NOFOLLOW | AT_STATX_FORCE_SYNC,
                          STATX_BASIC_STATS, &facts));
}

Result<FileDescriptor> OpenBelow(const FileDescriptor& folder, const std::string& name) {
  FileDescriptor below(openat(folder.get(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!below) return LastError();
  return below;
}

void RemoveEmpty(const FileDescriptor& folder, const std::string& name) {
  static_cast<void>(unlinkat(folder.get(), name.c_str(), AT_REMOVEDIR));
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

/// In two steps: from a name to another spelling of it the system sees no change and does nothing. Between
/// them what is respelled has its name in a folder of its own, so that it is not lost should the program
/// end there.
Status Respell(const std::string& folder, const std::string& from, const std::string& to) {
  const auto place = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  if (!place) return place.error();
  const std::string temporary = MakeTemporaryName();
  if (mkdirat(place->get(), temporary.c_str(), S_IRWXU) != 0) return LastNameError();
  const auto between = OpenBelow(*place, temporary);
  Status done = between ? Status(Done{}) : between.error();
  if (between && !Move(*place, from, *between, to)) {
    done = LastNameError();
  } else if (between) {
    ForgetName(*place, to);
    if (!Move(*between, to, *place, to)) {
      done = LastNameError();
      static_cast<void>(Move(*between, to, *place, from));
    }
  }
  RemoveEmpty(*place, temporary);
  return done;
}

Status EndRespelling(const std::string& folder, const std::string& temporary) {
  const auto place = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  if (!place) return place.error();
  const auto between = OpenBelow(*place, temporary);
  if (!between) return between.error();
  const auto listed = PosixFolder::Open(JoinPath(folder, temporary, PathStyle::kPosix), FollowLinks::kAll);
  if (!listed) return listed.error();
  for (const Entry& entry : (*listed)->entries()) {
    if (!Move(*between, entry.name, *place, entry.name)) return LastNameError();
  }
  RemoveEmpty(*place, temporary);
  return Done{};
}

}  // namespace platform::posix
