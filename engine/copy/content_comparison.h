#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "engine/copy/pending_copy.h"
#include "engine/copy/pulse.h"
#include "engine/tools.h"

namespace engine {

/// Compares the contents of files that count as up to date with those of their copies, many at a time. Knows
/// what is on its way, and nothing of what follows from what is found.
class ContentComparison {
 public:
  struct Compared {
    CopyJob job;
    platform::CompareOutcome outcome;
  };

  /// The comparisons rest while the pulse's hold does. The roots are the setup's folders.
  ContentComparison(const Tools& tools, const Pulse& pulse, std::string source_root, std::string target_root);

  /// Hands over a file whose selection has a target. Returns at once.
  void Start(CopyJob job);
  /// Whether Start() should be called now.
  bool HasRoom() { return !comparer_ || comparer_->HasRoom(); }
  bool is_idle() const { return pending_.empty(); }

  /// What was found of the file that was handed over first and not collected yet, as soon as that is known.
  std::optional<Compared> Collect();
  /// Waits until Collect() has something, but no longer than that.
  void Wait(std::chrono::milliseconds longest);

  /// The file that the run waits for. Only while it is not idle.
  std::string FileAtHand() const { return pending_.front().job.SourcePath(); }
  /// How much of the run is done when so much of it is walked: what is on its way is not.
  double Reached(double walked) const;
  /// Of one side: all that was collected, and what was read of files on their way.
  std::int64_t BytesRead() const;

  /// Forgets what is on its way.
  void GiveUp();

 private:
  using Bytes = std::atomic<std::int64_t>;
  struct Pending {
    CopyJob job;
    std::shared_ptr<Bytes> read;  ///< of each side, so far
  };

  const Tools& tools_;
  const Pulse& pulse_;
  const std::string source_root_;
  const std::string target_root_;
  std::unique_ptr<platform::Comparer> comparer_;  ///< made for the first file
  std::deque<Pending> pending_;                   ///< the oldest first
  std::int64_t collected_bytes_ = 0;
};

}  // namespace engine
