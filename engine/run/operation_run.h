#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/listener/listener.h"
#include "engine/run/refusal.h"
#include "engine/run/run_request.h"
#include "engine/target/run_lock.h"
#include "engine/tools.h"

namespace engine {

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

  /// Walks, copies, and unless it is cancelled brings the last names to the disk. To be called once, and only
  /// without a refusal.
  RunOutcome Run(Listener& listener);

 private:
  const Tools& tools_;
  RunRequest request_;
  RunLock lock_;
  std::optional<Refusal> refusal_;
};

}  // namespace engine
