#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>

#include "platform/windows/copy/draft.h"
#include "platform/windows/volume/volume.h"

namespace platform::windows {

/// How many threads make sense for reading on one volume and reading or writing on another.
std::size_t WorkersBetween(const Volume& source, const Volume& target);

/// How the data of a group comes to the disk.
enum class DataFlush {
  kVolume,     ///< the volume is flushed once
  kLastFully,  ///< each file is written out by the thread that wrote it, and the last is flushed fully
  kEachFully,  ///< each file is flushed fully by the thread that wrote it
  kNever,      ///< to measure what flushing costs
};

/// Where copies from one folder and what is below it go to another one.
///
/// Data, before a copy gets its name, new or replaced alike:
///  - Where the user may open the volume, FlushFileBuffers() for it, once a group. Microsoft: it flushes all
///    open files on the volume; for that all copies of the group are held open until they have their names.
///  - Else, or when that fails, NtFlushBuffersFileEx() with FLUSH_FLAGS_NO_SYNC for each file, and then
///    FlushFileBuffers() for the last one. Microsoft: the first writes data and metadata of the file and
///    leaves out only that the disk is told to empty its own cache, which the second adds. That cache is the
///    whole disk's, on NTFS as on FAT; where a volume is on several disks, the cache of another one may be
///    left. Where the first is missing or fails, FlushFileBuffers() for each.
///  - On a server, and behind a link in the target folder that leads to another volume, FlushFileBuffers()
///    for each; a server is free to make less of it.
///
/// Names: NTFS and ReFS keep a journal of changes of names, so that each reaches the disk as a whole, with
/// the space of what it replaced, and needs nothing more. FAT and exFAT keep none: there, and on a volume
/// that is not known, the renamed files are flushed once more, or their volume, which on FAT (after
/// Microsoft's published source of its driver) brings their folders and the table to the disk as well. A file
/// cannot be replaced there while it is held open, so until this flush its space could be given to the next
/// copies, and a power cut in between could leave its name with another file's data. Small groups keep that
/// time short; nothing on Windows closes it.
class WindowsCopyVolume : public CopyVolume {
 public:
  /// Both folders exist. With kNever nothing is flushed; else how follows from the volume.
  WindowsCopyVolume(const std::string& source, const std::string& target,
                    DataFlush data_flush = DataFlush::kVolume);

  CopyLimits limits() const override { return limits_; }
  std::unique_ptr<Draft> Prepare(const CopyOrder& order) override;
  Status SaveData(const Drafts& drafts) override;
  Status SaveNames(const Drafts& drafts) override;

  // For the drafts, from many threads.
  DataFlush data_flush() const { return data_flush_; }
  bool source_has_coarse_times() const { return source_has_coarse_times_; }
  /// Whether a new name needs no flush.
  bool names_are_ordered() const { return target_.is_journaled || target_.is_remote; }
  /// Whether an open file in that folder is on another volume than the target folder.
  bool IsElsewhere(const std::shared_ptr<Folder>& folder, const FileHandle& file);

 private:
  using FolderKey = std::weak_ptr<const Folder>;

  Volume target_;
  bool source_has_coarse_times_ = false;
  std::atomic<DataFlush> data_flush_;
  CopyLimits limits_;
  std::mutex mutex_;
  std::map<FolderKey, bool, std::owner_less<FolderKey>> elsewhere_;  ///< under the lock; of the last folders
};

}  // namespace platform::windows
