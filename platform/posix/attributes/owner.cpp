#include "platform/posix/attributes/owner.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"

namespace platform::posix {

Result<Owner> OwnerOf(const std::string& path) {
  const auto place = Reach(path);
  if (!place) return place.error();
  struct stat facts = {};
  if (fstatat(place->at(), place->rest, &facts, AT_SYMLINK_NOFOLLOW) != 0) return LastError();
  return Owner{facts.st_uid == geteuid() || facts.st_uid == 0, S_ISLNK(facts.st_mode)};
}

}  // namespace platform::posix
