#pragma once

#include <memory>

#include "platform/comparer.h"
#include "platform/content_reader.h"
#include "platform/workers.h"

namespace platform {

/// A Comparer on top of what a system offers. Small files are compared several at a time and handed to the
/// threads in batches; of two big ones the second waits for the first, so that a disk that turns reads each
/// in one go.
class PairComparer : public Comparer {
 public:
  /// `threads`, which must outlive the comparer, may do so many jobs at a time as they are allowed to; pairs
  /// that the system has in its memory are compared by no more than `quick_threads` of them.
  PairComparer(ContentOpener opener, Workers& threads, std::size_t quick_threads);
  ~PairComparer() override;

  bool HasRoom() override;
  void Start(CompareOrder order) override;
  std::optional<CompareOutcome> Collect() override;
  void Wait(std::chrono::milliseconds longest) override;

 private:
  struct State;

  /// Hands the batch at hand to the threads.
  void Post();

  Workers& threads_;
  std::shared_ptr<State> state_;  ///< shared with the jobs in the background
};

}  // namespace platform
