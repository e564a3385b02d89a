#include "tests/platform/posix/scratch.h"

#include <sys/fsuid.h>
#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>

namespace platform::posix::test {
namespace {

constexpr unsigned kNobody = 65534;

}  // namespace

Scratch::Scratch() : was_root_(geteuid() == 0) {
  if (was_root_) {
    setfsgid(kNobody);
    setfsuid(kNobody);
  }
  path_ = (std::filesystem::temp_directory_path() / "quorvane-test-XXXXXX").string();
  if (mkdtemp(path_.data()) == nullptr) path_.clear();
}

Scratch::~Scratch() {
  if (was_root_) {
    setfsuid(0);
    setfsgid(0);
  }
  if (!mounted_.empty()) umount2(mounted_.c_str(), MNT_DETACH);
  namespace fs = std::filesystem;
  std::error_code ignored;
  for (const auto& entry : fs::recursive_directory_iterator(path_, ignored)) {
    if (entry.is_directory(ignored)) fs::permissions(entry, fs::perms::owner_all, ignored);
  }
  fs::remove_all(path_, ignored);
}

bool Scratch::Mount(const std::string& folder, const std::string& options) {
  if (mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) != 0) return false;
  mounted_ = folder;
  return true;
}

void Scratch::Freeze() { mount("none", mounted_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, ""); }

}  // namespace platform::posix::test
