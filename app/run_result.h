#pragma once

#include <string>

#include "engine/operation_run.h"

namespace app {

/// How a run ended; the value is the program's exit code after an unattended one.
enum class Ending { kOk = 0, kWarnings = 1, kFailed = 2, kCancelled = 3, kRefused = 4 };

Ending EndingOf(const engine::RunOutcome& outcome);

/// The last line of an unattended run's output, for programs to read:
/// "RESULT status=ok new=1 modified=2 copied=3 failed=0 bytes=4567 seconds=8". The status is one of ok,
/// warnings, failed, cancelled, refused; seconds are whole, rounded.
std::string ResultLine(const engine::RunOutcome& outcome, double seconds);

}  // namespace app
