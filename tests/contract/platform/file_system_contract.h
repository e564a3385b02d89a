#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/path.h"

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
  /// Gives something, a link for itself, to another user, or to the one who runs the tests.
  virtual bool GiveTo(const std::string& /*path*/, bool /*another*/) { return false; }
  virtual bool MakeHardLink(const std::string& /*path*/, const std::string& /*file*/) { return false; }
  virtual bool MakePipe(const std::string& /*path*/) { return false; }
  virtual bool ForbidChanges(const std::string& /*folder*/) { return false; }
  /// Lets copies to `path` hold other bytes than are written.
  virtual bool Garble(const std::string& /*path*/) { return false; }
  /// From now on nothing that is written reaches the disk, and the system says so.
  virtual bool FailFlushes() { return false; }
  /// Another volume, of FAT, begins at `folder`, which is empty.
  virtual bool MountFat(const std::string& /*folder*/) { return false; }
  /// Leaves about 1 MiB for what lies below `folder`, which is empty.
  virtual bool MakeSmallDisk(const std::string& /*folder*/) { return false; }
  virtual std::size_t long_path() const { return 1'000; }  ///< so long a path must work
};

using SceneMaker = std::function<std::unique_ptr<Scene>()>;
using Names = std::vector<std::string>;

/// What a call has given; a failure ends the test.
template <typename T>
T Must(Result<T> result) {
  if (!result) throw std::runtime_error(result.error().text);
  return std::move(*result);
}

/// The entry of that name.
inline const Entry& Named(const Folder& folder, const std::string& name) {
  for (const Entry& entry : folder.entries()) {
    if (entry.name == name) return entry;
  }
  throw std::runtime_error("not listed: " + name);
}

/// Bytes that do not repeat in step with any block.
inline std::string Noise(std::size_t size) {
  constexpr std::size_t kPrime = 4'093;
  std::string bytes;
  std::minstd_rand random;
  while (bytes.size() < std::min(size, kPrime)) bytes += static_cast<char>(random() >> 8);
  while (bytes.size() < size) bytes += bytes.substr(0, kPrime);
  return bytes.substr(0, size);
}

/// A scene with the empty folders "from" and "to".
class SceneTest : public testing::Test {
 protected:
  explicit SceneTest(std::unique_ptr<Scene> scene) : scene_(std::move(scene)) {
    AddFolder("from");
    AddFolder("to");
  }

  FileSystem& files() { return scene_->files(); }
  /// "a/b" below the scene's root.
  std::string At(const std::string& relative) const {
    std::string path = scene_->root() + '/' + relative;
    std::replace(path.begin(), path.end(), '/', Separator());
    return path;
  }
  void AddFolder(const std::string& relative) { Must(files().CreateFolder(At(relative))); }
  void AddFile(const std::string& relative, const std::string& content, FileTime modified = kOldTime) {
    Must(files().WriteFile(At(relative), content));
    scene_->SetModified(At(relative), modified);
  }
  /// from/file and to/file.
  void AddPair(const std::string& source, const std::string& target) {
    AddFile("from/file", source);
    AddFile("to/file", target);
  }
  std::string ContentOf(const std::string& relative) { return Must(files().ReadFile(At(relative), 1 << 30)); }
  Entry EntryAt(const std::string& relative) { return Must(files().Stat(At(relative))); }
  std::shared_ptr<Folder> Open(const std::string& relative) { return Must(files().OpenFolder(At(relative))); }
  Names NamesIn(const std::string& relative) {
    Names names;
    const auto folder = Open(relative);
    for (const Entry& entry : folder->entries()) names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    return names;
  }
  /// Copies these files of a folder; what came of each, in their order.
  std::vector<Result<CopyOutcome>> CopyAll(std::shared_ptr<const Folder> from, const Names& names,
                                           std::shared_ptr<Folder> to, TargetName name,
                                           const CopyProgress& watcher = {}) {
    const auto copier = files().MakeCopier(from->path(), to->path());
    for (const std::string& file : names) {
      while (!copier->HasRoom()) copier->Wait(std::chrono::seconds{1});
      copier->Start({from, &Named(*from, file), to, name, watcher, reads_back_});
    }
    copier->Save();
    std::vector<Result<CopyOutcome>> outcomes;
    while (outcomes.size() < names.size()) {
      if (auto outcome = copier->Collect()) {
        outcomes.push_back(std::move(*outcome));
      } else {
        copier->Wait(std::chrono::seconds{1});
      }
    }
    EXPECT_EQ(copier->Wait({}), CopyStage::kIdle);
    return outcomes;
  }
  /// Copies from/`name` to "to".
  Result<CopyOutcome> Copy(const std::string& name, const CopyProgress& watcher = {}) {
    return CopyAll(Open("from"), {name}, Open("to"), TargetName::kTaken, watcher).front();
  }

  static constexpr FileTime kOldTime{1'500'000'000, 123'456'700};

  std::unique_ptr<Scene> scene_;
  bool reads_back_ = false;  ///< every copy
};

class FileSystemContract : public SceneTest, public testing::WithParamInterface<SceneMaker> {
 protected:
  FileSystemContract() : SceneTest(GetParam()()) {}
};

}  // namespace platform::contract
