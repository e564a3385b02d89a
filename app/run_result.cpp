#include "app/run_result.h"

#include <array>
#include <cmath>

namespace app {

Ending EndingOf(const engine::RunOutcome& outcome) {
  if (outcome.status != 0) return Ending::kRefused;
  if (outcome.cancelled) return Ending::kCancelled;
  const engine::Totals& totals = outcome.totals;
  if (outcome.terminated || totals.counts.failed > 0 || totals.unread_folders > 0) return Ending::kFailed;
  return totals.warnings > 0 ? Ending::kWarnings : Ending::kOk;
}

std::string ResultLine(const engine::RunOutcome& outcome, double seconds) {
  static constexpr std::array kWords{"ok", "warnings", "failed", "cancelled", "refused"};
  const engine::FileCounts& counts = outcome.totals.counts;
  const auto field = [](const char* name, std::int64_t value) {
    return " " + std::string(name) + "=" + std::to_string(value);
  };
  return std::string("RESULT status=") + kWords[static_cast<std::size_t>(EndingOf(outcome))] +
         field("new", counts.new_files) + field("modified", counts.modified_files) +
         field("copied", counts.copied) + field("failed", counts.failed) +
         field("bytes", outcome.totals.bytes_copied) + field("seconds", std::llround(seconds));
}

}  // namespace app
