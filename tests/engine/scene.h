#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/operation_run.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_system.h"
#include "text/program_texts.h"

/// A small world for the engine's tests: a file system in memory with /src and /dst, a listener and a host
/// that remember.
namespace engine::test {

class RecordingListener : public Listener {
 public:
  void FolderBegun(const FolderCounts& folder) override { begun.push_back(folder.path); }
  void FolderEnded(const FolderCounts& folder) override { ended.push_back(folder); }
  void WriteLine(const std::string& text) override { lines.push_back(text); }
  void CopyBegun(const std::string& source_path) override {
    copies.push_back(source_path);
    if (on_copy) on_copy(source_path);
  }
  void CopyEnded(std::int64_t, std::int64_t) override {}
  void Progress(double fraction) override { progress.push_back(fraction); }
  void Breathe() override { ++breaths; }
  bool StopRequested() override { return stop; }
  bool AskWhetherToGoOn(const Question& question) override {
    questions.push_back(question.text);
    return go_on;
  }
  void Tell(const std::string& text) override { told.push_back(text); }
  bool PauseWished() override { return pause_wished; }
  void Pause() override { paused_after = copies; }

  bool HasLine(const std::string& part) const {
    for (const std::string& line : lines) {
      if (line.find(part) != std::string::npos) return true;
    }
    return false;
  }

  std::vector<std::string> begun, lines, copies, questions, told, paused_after;
  std::vector<FolderCounts> ended;
  std::vector<double> progress;
  std::function<void(const std::string&)> on_copy;
  int breaths = 0;
  bool stop = false;
  bool pause_wished = false;
  bool go_on = true;
};

class RecordingHost : public RunHost {
 public:
  void PrepareFor(app::Operation) override { steps.push_back("prepare"); }
  void Refuse(const std::string& text, const std::string& title) override {
    steps.push_back("refuse");
    refusal = title + "|" + text;
  }
  void ShowNote(const std::string&) override {}
  bool ConfirmOperation(app::Operation) override {
    steps.push_back("confirm");
    return confirm;
  }
  Listener& OpenReport(app::Operation, const ReportHeading& new_heading) override {
    steps.push_back("open");
    heading = new_heading;
    return listener;
  }
  void RefreshFreeSpace() override {}
  void LockControls() override { steps.push_back("lock"); }
  void WriteSummary(app::Operation, const Totals&) override { steps.push_back("summary"); }
  void CloseReport(const std::string&) override { steps.push_back("close"); }
  void UnlockControls() override { steps.push_back("unlock"); }
  void RefreshFolderDisplays() override { steps.push_back("refresh"); }

  RecordingListener listener;
  ReportHeading heading;
  std::vector<std::string> steps;
  std::string refusal;
  bool confirm = true;
};

class Scene {
 public:
  Scene() {
    files.AddFolder("/src");
    files.AddFolder("/dst");
    setup.SourceFolder = "/src";
    setup.TargetFolder = "/dst";
    setup.IncludeSubfolders = true;
  }

  RunOutcome Run(app::Operation operation, std::string* status_text = nullptr) {
    return RunOperation(host, tools, {setup, operation, modified_since, skip_picture_caches}, status_text);
  }
  RunOutcome BackUp() { return Run(app::Operation::kBackupModifiedFiles); }
  RunOutcome BackUpAll() { return Run(app::Operation::kBackupAllFiles); }
  RunOutcome Check() { return Run(app::Operation::kCheckBackupState); }

  platform::memory::MemoryFileSystem files;
  platform::memory::MemoryClock clock;
  text::ProgramTexts texts{
      "164 Swap file:\n390 System file:\n500 Not copied:\n520 Not read:\n521 Link:\n522 Dead:\n523 Special:\n"
      "524 Target inside:\n529 Would overwrite:\n525 Gone:\n45 source folder\n58 Close\n502 No "
      "permission.\n406 Protected.\n"};
  bool write_protected = false;
  Tools tools{files,
              clock,
              texts,
              {},
              [this](const std::string& path, double& free_bytes, double& total_bytes) {
                const auto space = files.Space(path);
                if (!space) return std::int16_t{-1};
                free_bytes = static_cast<double>(space->free);
                total_bytes = static_cast<double>(space->total);
                return std::int16_t{0};
              },
              [this](const std::string&, std::string& error_text) {
                error_text = "Read-only file system";
                return write_protected;
              }};
  app::Setup setup;
  std::optional<platform::FileTime> modified_since;
  bool skip_picture_caches = false;
  RecordingHost host;
  RecordingListener& listener = host.listener;
};

/// Every file met is accounted for.
inline bool Balances(const FileCounts& counts) {
  return counts.met == counts.copied + counts.up_to_date + counts.filtered_out + counts.failed + counts.due;
}

}  // namespace engine::test
