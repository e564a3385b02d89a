#include "report/run_report.h"
#include "text/str_proc.h"

namespace report {

void RunReport::WriteSummary(const engine::Totals& totals) {
  switch (facts_.operation) {
    case app::Operation::kListIncludedSubfolders:
      return ReportForListFolders(totals);
    case app::Operation::kCheckBackupState:
      return ReportForCheckBackupState(totals);
    case app::Operation::kBackupAllFiles:
      return ReportForBackupAllFiles(totals);
    case app::Operation::kBackupModifiedFiles:
      return ReportForBackupModifiedFiles(totals);
  }
}

void RunReport::BeginSummary() {
  ShowLatest();
  ShowFreeSpace();
  window_.CloseLine();
  window_.RepeatLostProblems();
}

void RunReport::WriteCount(const char* caption, std::int64_t count) {
  window_.OutputKept(caption + text::GroupedNumber(count, marks_), true);
}

void RunReport::WriteSize(const char* caption, std::int64_t bytes) {
  window_.OutputKept(caption + StrProc::FormatByteCountWithMb(static_cast<double>(bytes), false, marks_),
                     true);
}

void RunReport::WriteSinceHeading() {
  window_.OutputKept("For files new or modified " + facts_.modified_since + ":", true);
}

void RunReport::WriteCopied(const engine::Totals& totals) {
  WriteCount("Number of files copied: ", totals.counts.copied);
  if (totals.counts.failed > 0) {
    WriteCount("Number of errors when attempting to copy a file: ", totals.counts.failed);
  }
}

void RunReport::WriteCompared(const engine::Totals& totals) {
  if (!facts_.compares_contents) return;
  WriteCount("Number of files whose contents were compared: ", totals.counts.compared);
  WriteCount("Number of these with other content in the copy: ", totals.counts.differed);
}

void RunReport::WriteReadBack(const engine::Totals& totals) {
  if (!facts_.reads_back) return;
  WriteCount("Number of copies that were read back from the disk: ", totals.counts.read_back);
  WriteCount("Number of these that were not as written: ", totals.counts.not_as_written);
}

void RunReport::ReportForListFolders(const engine::Totals& totals) {
  BeginSummary();
  WriteCount("Number of folders: ", totals.folders);
  WriteCount("Number of files: ", totals.counts.met - totals.counts.filtered_out);
  WriteSize("Sum of file sizes: ", totals.bytes_met);
}

void RunReport::ReportForBackupAllFiles(const engine::Totals& totals) {
  BeginSummary();
  window_.OutputKept("", true);
  WriteCount("Number of non-empty folders accessed: ", totals.non_empty_folders);
  WriteCopied(totals);
  if (totals.counts.copied > 0) WriteSize("Sum of sizes of files copied: ", totals.bytes_copied);
  WriteReadBack(totals);
}

void RunReport::ReportForBackupModifiedFiles(const engine::Totals& totals) {
  const std::int64_t modified = totals.counts.modified_files;
  const std::int64_t new_files = totals.counts.new_files;
  BeginSummary();
  WriteSinceHeading();
  WriteCount("Number of modified files: ", modified);
  WriteCount("Number of files not previously backed up: ", new_files);
  if (modified >= 1 && new_files >= 1) {
    WriteCount("Number of files modified or not previously backed up: ", modified + new_files);
  }
  WriteCopied(totals);
  WriteSize("Sum of sizes of files copied: ", totals.bytes_copied);
  WriteReadBack(totals);
  WriteCompared(totals);
  WriteWarningLine(totals);
}

void RunReport::ReportForCheckBackupState(const engine::Totals& totals) {
  const std::int64_t modified = totals.counts.modified_files;
  const std::int64_t new_files = totals.counts.new_files;
  BeginSummary();
  WriteSinceHeading();
  // Nothing found is good news only when everything was looked at.
  const bool all_seen = totals.counts.failed == 0 && totals.unread_folders == 0 &&
                        totals.left_out_folders == 0 && !StopRequested();
  if (modified + new_files == 0 && all_seen) {
    window_.OutputKept("All files backed up.", true);
  } else {
    WriteCount("Number of modified files: ", modified);
    WriteCount("Number of files not backed up: ", new_files);
    WriteCount("Number of files modified or not backed up: ", modified + new_files);
  }
  WriteCompared(totals);
}

void RunReport::WriteWarningLine(const engine::Totals& totals) {
  if (totals.warnings == 0) return;
  window_.OutputKept("\r\nThis report contains ", false);
  window_.OutputKept(totals.warnings == 1 ? "one warning." : StrProc::Trim(totals.warnings) + " warnngs.",
                     true);
}

}  // namespace report
