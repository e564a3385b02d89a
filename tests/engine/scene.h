#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/run/operation_run.h"
#include "platform/memory/memory_system.h"
#include "tests/tree.h"
#include "text/program_texts.h"

namespace engine::test {

/// How many made-up trees a test goes through. Fewer with the sanitizers, which see the same code in each.
constexpr unsigned Trees(unsigned count) {
#ifdef __SANITIZE_ADDRESS__
  return count / 4;
#else
  return count;
#endif
}

/// A run on a file system in memory with /src and /dst. It is the run's listener itself: it
/// remembers what it is told, "|" behind each, and answers as the test wishes.
class Scene : public Listener {
 public:
  explicit Scene(const std::vector<std::string>& entries = {},
                 const std::vector<std::string>& included = {}) {
    tree::Add(files, {"/src/", "/dst/"});
    tree::Add(files, entries);
    setup.SourceFolder = "/src";
    setup.TargetFolder = "/dst";
    setup.IncludedFolders = included;
    setup.IncludeSubfolders = true;
  }

  /// Runs an operation, holds its sums against each other, and gives them in words: "new 2, copied 2".
  std::string Run(app::Operation operation) {
    RunRequest request{setup, operation, {}};
    if (compare_contents) request.compare_contents = true;
    if (reads_back) request.read_back = true;
    outcome = {};
    told_copied = 0;
    refusal = CheckRequest(tools, request, [this](const std::string& note) { notes += note + "|"; });
    if (!refusal) outcome = RunChecked(tools, request);
    const FileCounts& sums = outcome.totals.counts;
    EXPECT_EQ(sums.copied, told_copied);
    EXPECT_EQ(sums.met, sums.copied + sums.up_to_date + sums.filtered_out + sums.failed + sums.due);
    const char* const names[] = {"new", "modified", "copied",   "up to date", "filtered",  "failed",
                                 "due", "unread",   "warnings", "cancelled",  "terminated"};
    const std::int64_t counts[] = {
        sums.new_files,          sums.modified_files, sums.copied,       sums.up_to_date,
        sums.filtered_out,       sums.failed,         sums.due,          outcome.totals.unread_folders,
        outcome.totals.warnings, outcome.cancelled,   outcome.terminated};
    std::string words;
    for (std::size_t i = 0; i < std::size(counts); ++i) {
      if (counts[i] != 0)
        words += (words.empty() ? "" : ", ") + std::string(names[i]) + " " + std::to_string(counts[i]);
    }
    return words;
  }
  RunOutcome RunChecked(const Tools& used, const RunRequest& request) {
    OperationRun run(used, request);
    refusal = run.refusal();
    if (refusal) return {};
    const ReportHeading heading = run.Heading();
    lines = heading.caption + "|";
    for (const std::string& line : heading.lines) WriteLine(line);
    return run.Run(*this);
  }
  std::string BackUp() { return Run(app::Operation::kBackupModifiedFiles); }
  std::string BackUpAll() { return Run(app::Operation::kBackupAllFiles); }
  std::string Check() { return Run(app::Operation::kCheckBackupState); }

  std::string Copies() { return tree::Below(files, "/dst"); }
  bool Wrote(const std::string& part) const { return lines.find(part) != std::string::npos; }
  void FolderBegun(const FolderCounts& folder) override {
    visited += folder.path + "|";
    in_order += folder.path + " " + std::to_string(folder.files_in_folder) + "|";
  }
  void FolderEnded(const FolderCounts& folder) override {
    const FileCounts& sums = folder.counts;
    for (const std::int64_t count : {sums.met, sums.new_files, sums.modified_files, sums.copied,
                                     sums.up_to_date, sums.failed, sums.compared, sums.differed})
      in_order += std::to_string(count) + " ";
    in_order += "of " + folder.path + "|";
    ended += folder.path + "|";
    if (sums.failed == 0 && !stop) {
      EXPECT_EQ(folder.files_to_copy, sums.copied) << folder.path;
    }
  }
  void WriteLine(const std::string& text) override {
    lines += text + "|";
    in_order += text + "|";
  }
  void CopyBegun(const std::string& path) override {
    copied += path + "|";
    if (on_copy) on_copy();
  }
  void CopyEnded(std::int64_t, std::int64_t files_copied) override { told_copied = files_copied; }
  void ReadingBack(const std::string& path) override { read_back += path + "|"; }
  void Comparing(const std::string&) override {}
  void Compared(std::int64_t, std::int64_t) override {}
  void Saving(bool is_saving) override { saving += is_saving ? "saving|" : "done|"; }
  void Progress(const Reached& reached) override {
    progress.push_back(reached.fraction);
    bytes_done.push_back(reached.bytes);
  }
  void Breathe() override {
    ++breaths;
    if (on_breath) on_breath();
  }
  bool StopRequested() override { return stop; }
  bool AskWhetherToGoOn(const Question& question) override {
    ++questions;
    asked = question.statement + "|" + question.question;
    return go_on;
  }
  void Tell(const std::string& text) override { told += text; }
  bool PauseWished() override { return pause_wished; }
  void Pause() override { paused_after += copied; }

  platform::memory::MemoryFileSystem files;
  platform::memory::MemoryClock clock;
  text::ProgramTexts texts{
      "37 Empty.\n38 Nothing\n40 No files.\n42 Which?\n45 source folder\n58 Close\n406 Protected.\n"
      "500 Not copied:\n502 No permission.\n505 Folder in the way.\n506 File in the way.\n508 Bad name.\n"
      "509 Too large.\n511 Unknown.\n512 Name taken.\n513 Target gone.\n515 Folder gone.\n"
      "516 Too many open.\n520 Not read:\n521 Link:\n522 Dead:\n523 Special:\n524 Target inside:\n"
      "525 Gone:\n526 The same.\n527 Same\n528 Not read:\n529 Would overwrite:\n533 Not flushed:\n"
      "534 Mount:\n535 Same name:\n537 Changed:\n538 Ended early.\n540 Interrupted.\n541 Not marked:\n"
      "542 Mark unread:\n543 Goes on.\n560 Elsewhere:\n561 Foreign:\n562 Foreign link.\n"
      "563 Folder name taken.\n590 Above:\n591 Below:\n592 Other run.\n652 Unreadable:\n653 Not plain:\n"
      "654 Taken:\n655 Wait.\n661 Became folder.\n770 Other content:\n771 Not compared:\n"
      "772 Copy unreadable:\n773 Move it.\n774 Changed before:\n775 Comparing all.\n776 Bad disk.\n"
      "777 Reading back.\n"};
  bool write_protected = false;
  Tools tools{files,
              clock,
              texts,
              {},
              [this](const std::string& path, double& free_bytes, double&) {
                const auto space = files.GetDiskSpace(path);
                if (space) free_bytes = static_cast<double>(space->free);
                return space ? std::int16_t{0} : std::int16_t{-1};
              },
              [this](const std::string&, std::string& error_text) {
                error_text = "Read-only file system";
                return write_protected;
              }};
  app::Setup setup;
  RunOutcome outcome;
  std::optional<Refusal> refusal;  ///< of the last run

  std::string lines, visited, ended, copied, told, asked, notes, paused_after, saving, read_back;
  std::vector<double> progress;
  std::vector<std::int64_t> bytes_done;
  std::string in_order;  ///< all that the report is made from
  int breaths = 0, questions = 0;
  std::int64_t told_copied = 0;
  bool compare_contents = false, reads_back = false;
  bool go_on = true, stop = false, pause_wished = false;
  std::function<void()> on_copy, on_breath;
};

}  // namespace engine::test
