#pragma once

#include <string>

#include "app/data/operation.h"
#include "engine/run/run_request.h"
#include "text/grouped_number.h"

namespace app {

/// How a run ended; the value is the program's exit code after an unattended one.
enum class RunStatus { kOk = 0, kWarnings = 1, kFailed = 2, kCancelled = 3, kRefused = 4 };

RunStatus StatusOf(const engine::RunOutcome& outcome);

/// Whether a run that took place left something undone against the user's will, cancelled or not.
bool SomethingFailed(const engine::RunOutcome& outcome);

/// How a run that took place ended, in one sentence for a person: "Finished: 274 files copied, 1 file could
/// not be copied."
std::string EndText(Operation operation, const engine::RunOutcome& outcome, const text::NumberMarks& marks);

/// The last line of an unattended run's output, for programs to read:
/// "RESULT status=ok new=1 modified=2 copied=3 failed=0 bytes=4567 seconds=8". The status is one of ok,
/// warnings, failed, cancelled, refused; seconds are whole, rounded. A run that compared contents has
/// " compared=9 differed=1" after that.
std::string ResultLine(const engine::RunOutcome& outcome, double seconds);

}  // namespace app
