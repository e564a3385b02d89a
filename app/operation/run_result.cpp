#include "app/operation/run_result.h"

#include <array>
#include <cmath>

#include "text/str_proc.h"

namespace app {

RunStatus StatusOf(const engine::RunOutcome& outcome) {
  if (outcome.status != 0) return RunStatus::kRefused;
  if (outcome.cancelled) return RunStatus::kCancelled;
  if (SomethingFailed(outcome)) return RunStatus::kFailed;
  return outcome.totals.warnings > 0 ? RunStatus::kWarnings : RunStatus::kOk;
}

bool SomethingFailed(const engine::RunOutcome& outcome) {
  return outcome.terminated || outcome.totals.counts.failed > 0 || outcome.totals.unread_folders > 0;
}

namespace {

/// Words with a count before them, such as "1 file copied", for each count; and a part that is left out for
/// 0.
class EndParts {
 public:
  explicit EndParts(const text::NumberMarks& marks) : marks_(marks) {}
  void Add(std::int64_t count, const std::string& noun, const std::string& rest) {
    text_ += (text_.empty() ? "" : ", ") + text::GroupedNumber(count, marks_) + " " + noun +
             StrProc::PluralSuffix(count) + rest;
  }
  void AddUnlessNone(std::int64_t count, const std::string& noun, const std::string& rest) {
    if (count > 0) Add(count, noun, rest);
  }
  const std::string& text() const { return text_; }

 private:
  text::NumberMarks marks_;
  std::string text_;
};

}  // namespace

std::string EndText(Operation operation, const engine::RunOutcome& outcome, const text::NumberMarks& marks) {
  const engine::Totals& totals = outcome.totals;
  const engine::FileCounts& files = totals.counts;
  EndParts parts(marks);
  if (operation == Operation::kListIncludedSubfolders) {
    parts.Add(totals.folders, "folder", "");
    parts.Add(files.met - files.filtered_out, "file", "");
  } else if (operation == Operation::kCheckBackupState) {
    parts.Add(files.due, "file", " to be backed up");
    parts.AddUnlessNone(files.failed, "file", " could not be read");
  } else {
    parts.Add(files.copied, "file", " copied");
    parts.AddUnlessNone(files.failed, "file", " could not be copied");
  }
  if (outcome.read_back) {
    const std::string bad = text::GroupedNumber(files.not_as_written, marks) + " of them bad";
    parts.Add(files.read_back, "file", " read back" + (files.not_as_written > 0 ? ", " + bad : ""));
  }
  if (outcome.compared_contents) parts.Add(files.compared, "file", " compared");
  parts.AddUnlessNone(files.differed, "file", " with other content");
  parts.AddUnlessNone(totals.unread_folders, "folder", " could not be read");
  parts.AddUnlessNone(totals.warnings, "warning", "");
  const char* const how = outcome.cancelled    ? "Cancelled: "
                          : outcome.terminated ? "Ended early: "
                                               : "Finished: ";
  return how + parts.text() + ".";
}

std::string ResultLine(const engine::RunOutcome& outcome, double seconds) {
  static constexpr std::array kWords{"ok", "warnings", "failed", "cancelled", "refused"};
  const engine::FileCounts& counts = outcome.totals.counts;
  const auto field = [](const char* name, std::int64_t value) {
    return " " + std::string(name) + "=" + std::to_string(value);
  };
  std::string compared;
  if (outcome.compared_contents)
    compared = field("compared", counts.compared) + field("differed", counts.differed);
  return std::string("RESULT status=") + kWords[static_cast<std::size_t>(StatusOf(outcome))] +
         field("new", counts.new_files) + field("modified", counts.modified_files) +
         field("copied", counts.copied) + field("failed", counts.failed) +
         field("bytes", outcome.totals.bytes_copied) + field("seconds", std::llround(seconds)) + compared;
}

}  // namespace app
