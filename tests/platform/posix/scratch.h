#pragma once

#include <string>

/// A folder of a test's own on the real disk, with what only Linux can do there.
namespace platform::posix::test {

/// Made empty, and removed with all it holds. A test that runs as root becomes an ordinary user for the file
/// system meanwhile: root may do everything, and would see no refusal.
class Scratch {
 public:
  Scratch();
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch();

  const std::string& path() const { return path_; }

  /// Mounts a volume in memory on the empty folder `folder`. Only root can: false for others.
  bool Mount(const std::string& folder, const std::string& options);
  /// From now on the mounted volume can only be read.
  void Freeze();

 private:
  std::string path_;
  std::string mounted_;
  bool was_root_ = false;
};

}  // namespace platform::posix::test
