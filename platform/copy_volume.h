#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/copier.h"

/// What a GroupedCopier needs of a system. Everything here is called from its threads, many at a time, but
/// for one draft one call at a time.
namespace platform {

/// A copy under its temporary name.
class Draft {
 public:
  /// Takes the temporary file away unless Publish() succeeded, and lets go of what the copy replaced.
  virtual ~Draft() = default;

  /// May open the source and have the system begin to read it, so that Write(), which comes soon, need not
  /// wait for the disk. Asked of a few drafts ahead. Fails silently: Write() tells what is wrong.
  virtual void Prefetch() {}

  /// Writes the copy: steps 1 of a Copier. Asks the watcher, which may be empty.
  virtual Result<CopyOutcome> Write(const CopyProgress& watcher) = 0;

  /// Reads the copy back from the disk, where its data is, and compares it with what Write() wrote: only for
  /// an order that says so. kNotAsWritten, or kCancelled by the watcher, which is told the bytes read so far.
  virtual Status ReadBack(const CopyProgress& watcher) = 0;

  /// Gives the copy its final name: step 3. On a volume without a journal the file that it replaces keeps its
  /// space until the draft goes, where the system allows that.
  virtual Status Publish() = 0;
};

using Drafts = std::vector<Draft*>;

/// How many copies may be on their way on a volume.
struct CopyLimits {
  std::size_t workers = 1;  ///< threads that write; 0: the caller's own does everything, for tests
  /// How many drafts each of them has prefetched: a disk that has many files to choose from reads them in the
  /// order in which they pass by. Each holds a handle.
  std::size_t ahead = 1;
  /// Whether no two big files are written at a time: a disk that turns would go to and fro between them.
  bool big_files_alone = false;
  /// Whether no file is written while a group is saved and gets its names: for a volume on which each flush
  /// takes along what was written meanwhile, or a file that was replaced cannot keep its space.
  bool saves_alone = false;
  // Of one group.
  std::size_t files = 1;
  std::int64_t bytes = 1;
  std::size_t folders = 1;              ///< how often the folder may change
  std::chrono::milliseconds age{2000};  ///< how long files are added to it
};

/// The volume that receives the copies.
class CopyVolume {
 public:
  virtual ~CopyVolume() = default;

  virtual CopyLimits limits() const = 0;

  /// Quick; asks no disk.
  virtual std::unique_ptr<Draft> Prepare(const CopyOrder& order) = 0;

  /// Returns when the data of these drafts is on the disk, with their temporary names: step 2.
  virtual Status SaveData(const Drafts& drafts) = 0;

  /// Returns when their final names are on the disk as well, as far as step 4 needs it.
  virtual Status SaveNames(const Drafts& drafts) = 0;
};

}  // namespace platform
