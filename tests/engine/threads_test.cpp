#include <filesystem>
#include <fstream>
#include <random>

#include "platform/posix/copy/copy_volume.h"
#include "platform/posix/file_system.h"
#include "tests/engine/scene.h"

namespace engine::test {
namespace {

namespace fs = std::filesystem;
using platform::CopyLimits;

/// The system's own files, with copiers of so many threads.
class Files : public platform::posix::PosixFileSystem {
 public:
  explicit Files(std::size_t threads) : threads_(threads) {}
  std::unique_ptr<platform::Copier> MakeCopier(const std::string& source,
                                               const std::string& target) override {
    return std::make_unique<platform::GroupedCopier>(std::make_shared<Volume>(source, target, threads_),
                                                     copiers_);
  }

 private:
  struct Volume : platform::posix::PosixCopyVolume {
    Volume(const std::string& source, const std::string& target, std::size_t threads)
        : PosixCopyVolume(source, target), its_threads(threads) {}
    CopyLimits limits() const override {
      CopyLimits limits = PosixCopyVolume::limits();
      limits.workers = its_threads;
      limits.files = its_threads == 1 ? 1 : 16;
      return limits;
    }
    const std::size_t its_threads;
  };

  const std::size_t threads_;
  platform::CopyThreads copiers_;
};

void Write(const fs::path& path, std::size_t length, char with = 'x') {
  fs::create_directories(path.parent_path());
  std::ofstream(path) << std::string(length, with);
}

/// A source, and a target in which some of its files are up to date and others have something in their way.
void MakeTree(const fs::path& root, unsigned seed) {
  std::minstd_rand random(seed);
  const auto roll = [&random](unsigned sides) { return (random() >> 8) % sides; };
  fs::remove_all(root);
  fs::create_directories(root / "dst");
  for (int i = 0; i < 40; ++i) {
    const fs::path name =
        fs::path("d" + std::to_string(roll(4))) / (roll(2) != 0 ? "s" : "") / std::to_string(i);
    Write(root / "src" / name, roll(3) == 0 ? 100'000 : roll(9));
    const fs::path copy = root / "dst" / name;
    if (roll(3) == 0) {
      Write(copy, roll(9), "xxxy"[roll(4)]);
    } else if (roll(9) == 0) {
      fs::create_directories(copy / "in the way");
    }
    if (roll(9) == 0) fs::create_symlink("nowhere", (root / "src" / name) += "l");
  }
}

std::string Told(const fs::path& root, unsigned seed, std::size_t threads) {
  MakeTree(root, seed);
  Scene scene;
  Files files(threads);
  const Tools tools{
      files, scene.clock, scene.texts, {}, scene.tools.GetDiskSpace, scene.tools.IsWriteProtected};
  app::Setup setup = scene.setup;
  setup.SourceFolder = (root / "src").string();
  setup.TargetFolder = (root / "dst").string();
  setup.IncludedFolders = {"d0", "d1", "d2", "d3"};
  const auto outcome =
      scene.RunChecked(tools, {setup, app::Operation::kBackupModifiedFiles, {}, false, seed % 2 == 0});
  const FileCounts& sums = outcome.totals.counts;
  return scene.in_order + std::to_string(sums.copied) + " of " + std::to_string(sums.met);
}

}  // namespace

TEST(Threads, TellTheSameHoweverManyThereAre) {
  // A file system in memory, where it is there: each run ends in a flush.
  const fs::path memory = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::path(testing::TempDir());
  const fs::path root = memory / ("quorvane-threads-" + std::to_string(getpid()));
  for (unsigned seed = 1; seed <= Trees(200); ++seed)
    EXPECT_EQ(Told(root, seed, 8), Told(root, seed, 1)) << seed;
  fs::remove_all(root);
}

}  // namespace engine::test
