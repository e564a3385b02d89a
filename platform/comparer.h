#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/folder.h"
#include "platform/result.h"

namespace platform {

/// Called with how far a comparison is: before its first byte (0), and between its blocks. Called from a
/// thread of the comparer, one call at a time for one pair of files.
using CompareWatcher = std::function<void(std::int64_t bytes_compared)>;

/// Two files that are taken for equal.
struct CompareOrder {
  std::shared_ptr<const Folder> source;
  const Entry* file = nullptr;  ///< one of source->entries()
  std::shared_ptr<const Folder> target;
  const Entry* copy = nullptr;  ///< one of target->entries()
  CompareWatcher watcher = {};  ///< may be empty
};

enum class Comparison {
  kEqual,
  kDifferent,
  kChanged,       ///< different, but the source is not as its listing says any more
  kSourceUnread,  ///< the source could not be opened, or not be read to its end
  kCopyUnread,    ///< the copy could not
};

struct CompareOutcome {
  Comparison finding = Comparison::kEqual;
  Error why = {};  ///< of what could not be read
};

/// Compares the contents of files, many pairs at a time. Both are read to their ends, block by block, as far
/// as they are equal; nothing is written anywhere. The system may answer from its memory what it has read or
/// written before.
///
/// To be used from one thread. Threads work below; results do not depend on how many.
class Comparer {
 public:
  /// Gives up what is not collected. Does not wait for the disk.
  virtual ~Comparer() = default;

  /// Whether Start() should be called now. False while as much is on its way as makes sense.
  virtual bool HasRoom() = 0;

  /// Hands a pair over. Returns at once.
  virtual void Start(CompareOrder order) = 0;

  /// What was found of the pair that was started first and not collected yet; nothing while that is not
  /// known.
  virtual std::optional<CompareOutcome> Collect() = 0;

  /// Waits until Collect() has something, but no longer than that. At once when nothing is on its way.
  virtual void Wait(std::chrono::milliseconds longest) = 0;
};

}  // namespace platform
