#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/data/operation.h"
#include "app/data/setup.h"
#include "engine/run_host.h"
#include "engine/selection.h"
#include "engine/tools.h"
#include "platform/file_time.h"

namespace engine {

/// Why a run did not start, as an unattended run reports it.
inline constexpr std::int16_t kNothingToDo = -101;
inline constexpr std::int16_t kNoFilesInSource = -102;
inline constexpr std::int16_t kNoFilesInSetup = -103;
inline constexpr std::int16_t kTargetNotSpecified = -104;
inline constexpr std::int16_t kTargetMissing = -105;
inline constexpr std::int16_t kTargetWriteProtected = -106;
inline constexpr std::int16_t kTargetIsSource = -107;
inline constexpr std::int16_t kSourceNotReadable = -108;
inline constexpr std::int16_t kNotConfirmed = -109;
inline constexpr std::int16_t kSetupNotRead = -110;
inline constexpr std::int16_t kNoSetup = -111;
inline constexpr std::int16_t kTargetNotReadable = -112;
inline constexpr std::int16_t kTargetInUse = -113;

/// What is to be run.
struct RunRequest {
  app::Setup setup;
  app::Operation operation = app::Operation::kCheckBackupState;
  std::optional<platform::FileTime> modified_since;  ///< the limit that setup.ModifiedSince stands for
  bool skip_picture_caches = false;
  /// Files that count as up to date are read and compared with their copies, by an operation that looks for
  /// modified ones.
  bool compare_contents = false;
};

struct RunOutcome {
  std::int16_t status = 0;  ///< 0, or why it did not start
  Totals totals;
  bool compared_contents = false;  ///< of files that counted as up to date
  bool cancelled = false;
  /// Ended early: target drive full, an answer that stops, data not safe on the disk.
  bool terminated = false;
};

/// Whether such a run reads files that count as up to date.
bool ComparesContents(const RunRequest& request);

/// What holds for every file of such a run.
SelectionRules RulesOf(const RunRequest& request);

/// Runs an operation from the validation of the setup to the summary. With `statusText` (an unattended run) a
/// refusal is returned in it and no message is shown; without it, it is shown. The setup stays as it was.
RunOutcome RunOperation(RunHost& host, const Tools& tools, const RunRequest& request,
                        std::string* statusText = nullptr);

}  // namespace engine
