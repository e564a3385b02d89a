#pragma once

#include "engine/copy/pending_copy.h"

namespace engine {

/// Shows which of the copies on their way is being written, read back or saved, and how far the run is.
class CopyDisplay {
 public:
  /// `reads_back`: every copy is. All must outlive the object.
  CopyDisplay(Listener& listener, const PendingCopies& pending, bool reads_back)
      : listener_(listener), pending_(pending), reads_back_(reads_back) {}

  /// What the copier said of its stage, after each wait for it.
  void Show(platform::CopyStage stage);

  /// How much of the run is done when so much of it is walked.
  double Reached(double walked) const;
  /// The bytes of all copies, of those on their way as far as they are done: half of a copy that is to be
  /// read back is to write it.
  std::int64_t BytesDone() const;

  /// A copy of so many bytes is no longer on its way.
  void Settled(std::int64_t bytes) { settled_bytes_ += bytes; }

 private:
  const PendingCopy* FirstBetween(std::int64_t times, std::int64_t more) const;
  void ShowFile(platform::CopyStage stage);
  /// How often the bytes of a file are gone through.
  std::int64_t times() const { return reads_back_ ? 2 : 1; }

  Listener& listener_;
  const PendingCopies& pending_;
  const bool reads_back_;
  std::int64_t settled_bytes_ = 0;
  int saving_waits_ = 0;
  bool is_saving_ = false;
};

}  // namespace engine
