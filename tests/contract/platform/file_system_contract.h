#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"

/// What every file system of the program is held to. An implementation takes part by a scene of its own and
/// one INSTANTIATE_TEST_SUITE_P of FileSystemContract.
namespace platform::contract {

/// An empty folder in the file system under test, and the things a test needs there that the seam itself does
/// not offer. What a system cannot do answers false, and the test says so and is skipped.
class Scene {
 public:
  virtual ~Scene() = default;
  virtual FileSystem& files() = 0;
  virtual std::string root() const = 0;
  virtual void SetModified(const std::string& path, FileTime modified) = 0;
  virtual bool MakeLink(const std::string& path, const std::string& destination) = 0;
  virtual bool MakePipe(const std::string& /*path*/) { return false; }
  virtual bool ForbidReading(const std::string& /*file*/) { return false; }
  virtual bool ForbidChanges(const std::string& /*folder*/) { return false; }
  /// Leaves about 1 MiB for what lies below `folder`, which is empty.
  virtual bool MakeSmallDisk(const std::string& /*folder*/) { return false; }
  virtual std::size_t long_path() const { return 1'000; }  ///< so long a path must work
};

using SceneMaker = std::function<std::unique_ptr<Scene>()>;

/// A scene with the empty folders "from" and "to".
class SceneTest : public testing::Test {
 protected:
  explicit SceneTest(std::unique_ptr<Scene> scene);

  FileSystem& files() { return scene_->files(); }
  /// "a/b" below the scene's root.
  std::string At(const std::string& relative) const;
  void AddFolder(const std::string& relative);
  void AddFile(const std::string& relative, const std::string& content, FileTime modified = kOldTime);
  std::string ContentOf(const std::string& relative);
  Entry EntryAt(const std::string& relative);
  std::unique_ptr<Folder> Open(const std::string& relative);
  std::vector<std::string> NamesIn(const std::string& relative);  ///< sorted
  /// Copies from/`name` to "to".
  Result<CopyOutcome> Copy(const std::string& name, const CopyWatcher& watcher = {});

  static constexpr FileTime kOldTime{1'500'000'000, 123'456'700};

  std::unique_ptr<Scene> scene_;
};

class FileSystemContract : public SceneTest, public testing::WithParamInterface<SceneMaker> {
 protected:
  FileSystemContract() : SceneTest(GetParam()()) {}
};

using Names = std::vector<std::string>;

/// The entry of that name.
const Entry& Named(const Folder& folder, const std::string& name);

/// `size` bytes that do not repeat in step with any block.
std::string Noise(std::size_t size);

}  // namespace platform::contract
