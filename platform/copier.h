#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/folder.h"
#include "platform/result.h"

namespace platform {

/// Called with how far a copy is: before its first byte (0), between its blocks, and at its end; where it is
/// read back, the same again, with its whole length on top. Returning false ends the copy with kCancelled.
/// Called from a thread of the copier, one call at a time for one file.
using CopyProgress = std::function<bool(std::int64_t bytes)>;

/// Whether the caller's listing of the target has something under the name of a file that is to be copied.
enum class TargetName { kFree, kTaken };

/// A file that is to be copied to the same name in another folder.
struct CopyOrder {
  std::shared_ptr<const Folder> source;
  const Entry* file = nullptr;  ///< one of source->entries()
  std::shared_ptr<Folder> target;
  TargetName name = TargetName::kFree;
  CopyProgress watcher = {};  ///< may be empty
  bool read_back = false;     ///< before it gets its final name
};

/// How much earlier than its source a copy is dated whose source changed meanwhile: so much that the two lie
/// in different months whatever the source's time will be in the years to come. Seconds; 400 days.
inline constexpr std::chrono::seconds kEarlierWhenChanged = std::chrono::days{400};

struct CopyOutcome {
  std::int64_t bytes = 0;            ///< the length of the copy
  Attributes source_attributes = 0;  ///< all three bits of the source
  Attributes target_attributes = 0;  ///< all three bits of the copy as it now is
  /// The source was written to meanwhile: the copy may hold old parts and new ones.
  bool changed = false;
};

/// What a copier is at when it has nothing to hand out yet.
enum class CopyStage {
  kIdle,         ///< nothing is on its way
  kReady,        ///< Collect() has something, or HasRoom() is true again
  kWriting,      ///< copies are being written
  kSaving,       ///< all that was written is being brought to the disk
  kReadingBack,  ///< copies are being read back, and none is being written
};

/// Copies files, many at a time, each as one transaction:
///
///  1. The copy is written under a temporary name in the target folder, with the data, the modification time
///     and, of the attributes, the system bit; read-only and hidden are dropped.
///  2. Its data is brought to the disk, with that of its group: up to some thousand files that were started
///     one after the other. If CopyOrder::read_back is set, it is then read back from there, past the
///     system's cache as far as that is possible, and compared with what was written.
///  3. Only then does it get its final name, in one atomic step, and replace what has that name.
///  4. On a volume without a journal the new names are brought to the disk before the space of what was
///     replaced can be used again, where the system allows that: Windows does not.
///
/// So whatever fails, and whenever the program ends, the medium is pulled out or the power fails, the final
/// name has the whole old file, the whole new one or, where there was none, nothing. A temporary file goes
/// with a failed copy; one that a killed run left is recognised by IsTemporaryName().
///
/// What can happen to a file:
///
///  5. With TargetName::kFree nothing is replaced: kNameTaken when something has the name all the same, such
///     as a name in other letters where the volume ignores case. With kTaken a read-only or hidden file is
///     replaced where the system allows it, else kAccessDenied.
///  6. A link at the source is followed; a link at the target is replaced. kIsAFolder when a folder has the
///     final name.
///  7. A source that changes while it is read gives a copy of the length that it had at the end, which may
///     hold old parts and new ones, dated kEarlierWhenChanged before it, so that it does not count as up to
///     date. So does one that was written to so shortly before that its time could not show another change.
///  8. A source that is shorter at the end than its bytes that were read, that ends too early, or that the
///     disk fails to read, gives kShort and no copy.
///  9. A copy whose bytes differ when they are read back, or that cannot be read back, gives kNotAsWritten
///     and gets no name. What a file has besides its bytes on Windows is not read back.
/// 10. When the data of a group cannot be brought to the disk, none of its files gets its final name: each
///     has that error. When its names cannot, each has that error, too, although it bears its name.
/// 11. Outcomes come in the order of Start(), whatever finishes first. The watcher can end a copy at any
///     block, with kCancelled.
///
/// All calls from one thread. The threads that work below are the copier's own; how many there are, it knows
/// by the kinds of volume, and results do not depend on it. The folders of an order come from the file system
/// that made the copier; the order keeps them open.
class Copier {
 public:
  /// As GiveUp(), of what is not collected.
  virtual ~Copier() = default;

  /// Whether Start() should be called now. False while as much is on its way as makes sense.
  virtual bool HasRoom() = 0;

  /// Hands a file over. Returns at once.
  virtual void Start(CopyOrder order) = 0;

  /// Lets everything started so far be saved and get its name without waiting for more.
  virtual void Save() = 0;

  /// What came of the file that was started first and not collected yet; nothing while that is not known.
  virtual std::optional<Result<CopyOutcome>> Collect() = 0;

  /// From now on no file gets its final name; temporary files go, in the background. Does not wait for the
  /// disk, but a moment for a name that is just being given. Collect() then has the outcomes of all files at
  /// once: kCancelled of each that did not get its name.
  virtual void GiveUp() = 0;

  /// Waits until Collect() has something, or HasRoom() becomes true, but no longer than that.
  virtual CopyStage Wait(std::chrono::milliseconds longest) = 0;
};

}  // namespace platform
