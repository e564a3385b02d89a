#pragma once

#include <memory>

#include "platform/copy_volume.h"
#include "platform/workers.h"

namespace platform {

/// The threads of all copiers of a file system. Whoever gives a copier up need not wait for the disk; when
/// this object goes, what was given up is done with.
struct CopyThreads {
  Workers saver;  ///< brings one group after the other to the disk
  Workers writers;
};

/// A Copier on top of what a system offers. Files that follow one another are written in batches, each by one
/// thread and mostly within one folder; batches make up a group, which is saved as a whole while the next one
/// is being written already. A group grows as long as the disk saves it quickly.
class GroupedCopier : public Copier {
 public:
  /// `threads` must outlive the copier.
  GroupedCopier(std::shared_ptr<CopyVolume> volume, CopyThreads& threads);
  ~GroupedCopier() override;

  bool HasRoom() override;
  void Start(CopyOrder order) override;
  void Save() override;
  std::optional<Result<CopyOutcome>> Collect() override;
  void GiveUp() override;
  CopyStage Wait(std::chrono::milliseconds longest) override;

 private:
  struct State;

  CopyThreads& threads_;
  std::shared_ptr<State> state_;  ///< shared with the jobs in the background
};

}  // namespace platform
