#pragma once

#include <sys/fsuid.h>
#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace platform::posix::test {

/// A folder of a test's own on the real disk, made empty, and removed with all it holds. A test that runs as
/// root becomes an ordinary user for the file system meanwhile: root may do everything, and would see no
/// refusal.
class Scratch {
 public:
  Scratch() {
    constexpr unsigned kNobody = 65534;
    setfsgid(kNobody);
    setfsuid(kNobody);
    path_ = (std::filesystem::temp_directory_path() / "quorvane-test-XXXXXX").string();
    if (mkdtemp(path_.data()) == nullptr) path_.clear();
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch() {
    namespace fs = std::filesystem;
    setfsuid(geteuid());
    setfsgid(getegid());
    if (!mounted_.empty()) umount2(mounted_.c_str(), MNT_DETACH);
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(path_, ignored)) {
      if (entry.is_directory(ignored)) fs::permissions(entry, fs::perms::owner_all, ignored);
    }
    fs::remove_all(path_, ignored);
  }

  const std::string& path() const { return path_; }

  /// Gives something, a link for itself, to a user. Only root can: false for others.
  static bool GiveTo(const std::string& path, unsigned user) {
    const auto now = static_cast<unsigned>(setfsuid(0));
    const bool given = lchown(path.c_str(), user, static_cast<unsigned>(-1)) == 0;
    setfsuid(now);
    return given;
  }

  /// Mounts a volume in memory on the empty folder `folder`. Only root can: false for others.
  bool Mount(const std::string& folder, const std::string& options) {
    if (mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) != 0) return false;
    mounted_ = folder;
    return true;
  }

 private:
  std::string path_;
  std::string mounted_;
};

}  // namespace platform::posix::test
