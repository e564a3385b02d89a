#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "engine/target/folder_pair.h"
#include "platform/posix/file_system.h"

/// What it costs to list a folder and its target and to join the two by name, for each of their files.
namespace {

namespace fs = std::filesystem;

/// A folder and its copy in the system's folder for temporary files, for as long as this lives.
class TwoFolders {
 public:
  explicit TwoFolders(std::int64_t files) {
    fs::create_directories(source());
    for (std::int64_t i = 0; i < files; ++i) std::ofstream(source() / ("file " + std::to_string(i)));
    fs::copy(source(), target());
  }
  ~TwoFolders() { fs::remove_all(root_); }
  TwoFolders(const TwoFolders&) = delete;
  TwoFolders& operator=(const TwoFolders&) = delete;

  fs::path source() const { return root_ / "source"; }
  fs::path target() const { return root_ / "target"; }

 private:
  fs::path root_ = fs::temp_directory_path() / "quorvane-folder-pair-bench";
};

void JoinTwoFolders(benchmark::State& state) {
  const TwoFolders folders(state.range(0));
  platform::posix::PosixFileSystem files;
  for ([[maybe_unused]] auto _ : state) {
    auto pair = engine::FolderPair::Open(
        files, folders.source(), std::make_shared<engine::TargetFolder>(folders.target(), folders.source()));
    if (!pair || !pair->OpenTarget().ok()) return state.SkipWithError("the folders cannot be listed");
    for (const platform::Entry& entry : pair->source().entries())
      benchmark::DoNotOptimize(pair->TargetOf(entry));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(JoinTwoFolders)->Arg(5)->Arg(50)->Arg(2'000);
