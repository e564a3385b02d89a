#pragma once

#include <cstdint>
#include <optional>

#include "app/data/operation.h"
#include "app/data/setup.h"
#include "engine/listener/counts.h"
#include "engine/selection/selection.h"
#include "platform/file_time.h"
#include "platform/folder.h"

namespace engine {

/// What is to be run.
struct RunRequest {
  app::Setup setup;
  app::Operation operation = app::Operation::kCheckBackupState;
  std::optional<platform::FileTime> modified_since;  ///< the limit that setup.ModifiedSince stands for
  bool skip_picture_caches = false;
  /// Files that count as up to date are read and compared with their copies, by an operation that looks for
  /// modified ones.
  bool compare_contents = false;
  /// Every copy is read back from the disk and compared with what was written.
  bool read_back = false;
  /// The target folder as it was when the request was checked, where its volume tells. A run that copies does
  /// not begin in another one: the disk may have been taken away since.
  std::optional<platform::Identity> checked_target = {};
};

/// Whether such a run reads files that count as up to date.
bool ComparesContents(const RunRequest& request);

/// Whether such a run reads its copies back.
bool ReadsBack(const RunRequest& request);

/// What holds for every file of such a run.
SelectionRules RulesOf(const RunRequest& request);

/// What came of it.
struct RunOutcome {
  std::int16_t status = 0;  ///< 0, or why it did not start
  Totals totals = {};
  bool compared_contents = false;  ///< of files that counted as up to date
  bool read_back = false;          ///< what it copied
  bool cancelled = false;
  /// Ended early: target drive full, an answer that stops, data not safe on the disk.
  bool terminated = false;
};

}  // namespace engine
