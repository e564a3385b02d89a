#pragma once

#include <cstdint>

#include "platform/copier.h"

namespace platform::windows {

/// How far a copy is, as its watcher is told: numbers that grow, none twice.
class Progress {
 public:
  /// `watcher` may be empty; it must outlive the object.
  explicit Progress(const CopyProgress& watcher) : watcher_(watcher) {}

  bool MayGoOn(std::int64_t bytes) {
    if (bytes <= told_) return true;
    told_ = bytes;
    return !watcher_ || watcher_(bytes);
  }
  std::int64_t told() const { return told_; }

 private:
  const CopyProgress& watcher_;
  std::int64_t told_ = -1;
};

}  // namespace platform::windows
