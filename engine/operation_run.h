#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/data/operation.h"
#include "app/data/setup.h"
#include "engine/listener/listener.h"
#include "engine/refusal.h"
#include "engine/run_lock.h"
#include "engine/selection.h"
#include "engine/tools.h"
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

struct RunOutcome {
  std::int16_t status = 0;  ///< 0, or why it did not start
  Totals totals = {};
  bool compared_contents = false;  ///< of files that counted as up to date
  bool read_back = false;          ///< what it copied
  bool cancelled = false;
  /// Ended early: target drive full, an answer that stops, data not safe on the disk.
  bool terminated = false;
};

/// Whether such a run reads files that count as up to date.
bool ComparesContents(const RunRequest& request);

/// Whether such a run reads its copies back.
bool ReadsBack(const RunRequest& request);

/// What holds for every file of such a run.
SelectionRules RulesOf(const RunRequest& request);

/// Why an operation cannot be run with this setup; nothing when it can. `show_note` gets what is going on
/// while that takes time, and the empty text when it is over. Changes nothing but for a file that is written
/// to the target and removed again.
std::optional<Refusal> CheckRequest(const Tools& tools, const RunRequest& request,
                                    const std::function<void(const std::string&)>& show_note);

/// The heading of a report.
struct ReportHeading {
  std::string caption;             ///< the report window's title
  std::vector<std::string> lines;  ///< its first lines
};

/// One run of an operation whose request has passed CheckRequest(). From the beginning of its life to the end
/// the target of a run that copies is locked.
class OperationRun {
 public:
  /// The tools outlive the run.
  OperationRun(const Tools& tools, RunRequest request);

  /// Why the run cannot begin after all: another one copies to its target, or the target is not the one that
  /// was checked.
  const std::optional<Refusal>& refusal() const { return refusal_; }

  ReportHeading Heading() const;

  /// Walks, copies, and brings the copies to the disk. To be called once, and only without a refusal.
  RunOutcome Run(Listener& listener);

 private:
  const Tools& tools_;
  RunRequest request_;
  RunLock lock_;
  std::optional<Refusal> refusal_;
};

}  // namespace engine
