#pragma once

#include <cstdint>
#include <span>

#include "platform/file_system.h"
#include "platform/fingerprint.h"

namespace platform::posix {

/// Moves the bytes of one open file to another, from their present positions on.
class DataMover {
 public:
  /// `block` is the memory that bytes pass through; a file that is smaller takes one read. With a
  /// `fingerprint`, which is then of what was moved, all bytes do; else the system may find a shorter way.
  DataMover(int source, int target, std::span<char> block, const CopyProgress& watcher,
            FingerprintTaker* fingerprint)
      : source_(source), target_(target), block_(block), watcher_(watcher), fingerprint_(fingerprint) {}

  /// Moves all that is left of the source, which is thought to have `expected` bytes in all. Asks the watcher
  /// before each block of those.
  Status MoveToEnd(std::int64_t expected);

  /// The bytes moved so far, by all calls together.
  std::int64_t moved() const { return moved_; }

 private:
  Status MoveBySystem(std::int64_t expected);
  Status MoveByBlocks(std::int64_t expected);
  bool MayGoOn() const { return !watcher_ || watcher_(moved_); }

  int source_;
  int target_;
  std::span<char> block_;
  const CopyProgress& watcher_;
  FingerprintTaker* fingerprint_;  ///< may be null
  std::int64_t moved_ = 0;
};

}  // namespace platform::posix
