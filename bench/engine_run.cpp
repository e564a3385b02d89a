#include <cstdio>
#include <cstring>
#include <string>

#include "engine/operation_run.h"
#include "platform/path.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_file_system.h"
#include "services/disk_proc.h"

/// Runs one operation of the engine with its report suppressed, as a program to be timed from outside:
///   engine_run check|modified|all SOURCE TARGET [--flush]
/// All first-level subfolders are included with everything below them. Without --flush the last step of a
/// run, bringing the copies safely to the disk, is left out: the tools it is compared with do not do it
/// either.

namespace {

class SilentListener : public engine::Listener {
 public:
  void FolderBegun(const engine::FolderCounts&) override {}
  void FolderEnded(const engine::FolderCounts&) override {}
  void WriteLine(const std::string& text) override { std::fprintf(stderr, "%s\n", text.c_str()); }
  void CopyBegun(const std::string&) override {}
  void CopyEnded(std::int64_t, std::int64_t) override {}
  void Progress(double) override {}
  void Breathe() override {}
  bool StopRequested() override { return false; }
  bool AskWhetherToGoOn(const engine::Question&) override { return false; }
  void Tell(const std::string&) override {}
  bool PauseWished() override { return false; }
  void Pause() override {}
};

class SilentHost : public engine::RunHost {
 public:
  void PrepareFor(app::Operation) override {}
  void Refuse(const std::string&, const std::string&) override {}
  void ShowNote(const std::string&) override {}
  bool ConfirmOperation(app::Operation) override { return true; }
  engine::Listener& OpenReport(app::Operation, const engine::ReportHeading&) override { return listener_; }
  void RefreshFreeSpace() override {}
  void LockControls() override {}
  void WriteSummary(app::Operation, const engine::Totals&) override {}
  void CloseReport(const std::string&) override {}
  void UnlockControls() override {}
  void RefreshFolderDisplays() override {}

 private:
  SilentListener listener_;
};

class WithoutFlush : public platform::posix::PosixFileSystem {
 public:
  platform::Status Flush(const std::string&) override { return platform::Done{}; }
};

app::Operation OperationOf(const char* word) {
  if (std::strcmp(word, "check") == 0) return app::Operation::kCheckBackupState;
  if (std::strcmp(word, "all") == 0) return app::Operation::kBackupAllFiles;
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

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fputs("engine_run check|modified|all SOURCE TARGET [--flush]\n", stderr);
    return 2;
  }
  platform::posix::PosixFileSystem flushing;
  WithoutFlush not_flushing;
  const bool flush = argc > 4 && std::strcmp(argv[4], "--flush") == 0;
  platform::FileSystem& files = flush ? static_cast<platform::FileSystem&>(flushing) : not_flushing;
  platform::posix::PosixClock clock;
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
  request.operation = OperationOf(argv[1]);
  request.setup.SourceFolder = argv[2];
  request.setup.TargetFolder = argv[3];
  IncludeEverything(files, request.setup);
  SilentHost host;
  std::string status_text;
  const engine::RunOutcome outcome = engine::RunOperation(host, tools, request, &status_text);
  const engine::FileCounts& counts = outcome.totals.counts;
  std::printf("status %d met %lld new %lld modified %lld copied %lld failed %lld\n", outcome.status,
              static_cast<long long>(counts.met), static_cast<long long>(counts.new_files),
              static_cast<long long>(counts.modified_files), static_cast<long long>(counts.copied),
              static_cast<long long>(counts.failed));
  return outcome.status == 0 && counts.failed == 0 ? 0 : 1;
}
