#include "bench/engine_run.h"

#include <algorithm>
#include <cstdio>

#include "engine/run/operation_run.h"
#include "platform/path.h"
#include "services/disk_proc.h"

namespace bench {
namespace {

class SilentListener : public engine::Listener {
 public:
  void FolderBegun(const engine::FolderCounts&) override {}
  void FolderEnded(const engine::FolderCounts&) override {}
  void WriteLine(const std::string& text) override { std::fprintf(stderr, "%s\n", text.c_str()); }
  void CopyBegun(const std::string&) override {}
  void CopyEnded(std::int64_t, std::int64_t) override {}
  void ReadingBack(const std::string&) override {}
  void Comparing(const std::string&) override {}
  void Compared(std::int64_t, std::int64_t) override {}
  void Saving(bool) override {}
  void Progress(const engine::Reached&) override {}
  void Breathe() override {}
  bool StopRequested() override { return false; }
  bool AskWhetherToGoOn(const engine::Question&) override { return false; }
  void Tell(const std::string&) override {}
  bool PauseWished() override { return false; }
  void Pause() override {}
};

app::Operation OperationOf(const std::string& word) {
  if (word == "check") return app::Operation::kCheckBackupState;
  if (word == "all") return app::Operation::kBackupAllFiles;
  return app::Operation::kBackupModifiedFiles;
}

void IncludeEverything(platform::FileSystem& files, app::Setup& setup) {
  setup.IncludeSubfolders = true;
  const auto source = files.OpenFolder(setup.SourceFolder);
  if (!source) return;
  for (const platform::Entry& entry : (*source)->entries()) {
    if (entry.kind == platform::EntryKind::kFolder) setup.IncludedFolders.push_back(entry.name);
  }
}

}  // namespace

int RunEngine(platform::FileSystem& flushing, platform::FileSystem& not_flushing, platform::Clock& clock,
              const std::vector<std::string>& words) {
  if (words.size() < 3) {
    std::fputs("engine_run check|modified|all SOURCE TARGET [--flush] [--compare] [--read-back]\n", stderr);
    return 2;
  }
  const auto wished = [&](const char* option) { return std::ranges::find(words, option) != words.end(); };
  platform::FileSystem& files = wished("--flush") ? flushing : not_flushing;
  const text::ProgramTexts texts;
  const engine::Tools tools{files,
                            clock,
                            texts,
                            {},
                            [&](const std::string& path, double& free, double& total) {
                              return DiskProc::GetDiskSpace(files, path, free, total);
                            },
                            [&](const std::string& folder, std::string& error_text) {
                              return DiskProc::IsWriteProtected(files, folder, error_text);
                            }};
  engine::RunRequest request;
  request.operation = OperationOf(words[0]);
  request.compare_contents = wished("--compare");
  request.read_back = wished("--read-back");
  request.setup.SourceFolder = words[1];
  request.setup.TargetFolder = words[2];
  IncludeEverything(files, request.setup);
  if (const auto refusal = CheckRequest(tools, request, [](const std::string&) {})) {
    std::printf("status %d\n", refusal->status);
    return 1;
  }
  SilentListener listener;
  const engine::RunOutcome outcome = engine::OperationRun(tools, request).Run(listener);
  const engine::FileCounts& counts = outcome.totals.counts;
  std::printf(
      "status %d met %lld new %lld modified %lld copied %lld failed %lld compared %lld "
      "differed %lld read_back %lld not_as_written %lld\n",
      outcome.status, static_cast<long long>(counts.met), static_cast<long long>(counts.new_files),
      static_cast<long long>(counts.modified_files), static_cast<long long>(counts.copied),
      static_cast<long long>(counts.failed), static_cast<long long>(counts.compared),
      static_cast<long long>(counts.differed), static_cast<long long>(counts.read_back),
      static_cast<long long>(counts.not_as_written));
  return outcome.status == 0 && counts.failed == 0 ? 0 : 1;
}

}  // namespace bench
