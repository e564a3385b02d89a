#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "engine/selection/selection.h"
#include "engine/target/folder_pair.h"
#include "platform/clock.h"
#include "platform/file_system.h"

namespace engine {

/// A second net below the copies, which are on the disk before they have their names: where a disk, a cable
/// or a file system did not keep that promise in an accident, nobody could tell the copies by size and time.
/// So a run leaves a mark in the target from its first copy to its end. The next one that finds it takes no
/// copy for up to date that was made since the mark was set.
///
/// The mark moves on with what is known to be on the disk, so that a first backup that is interrupted every
/// evening comes to its end. It is set and read by the target's own clock.
class UnfinishedRun {
 public:
  /// Looks for the mark of an earlier run in the folder `target`, which may be empty: then there is none.
  UnfinishedRun(platform::FileSystem& files, platform::Clock& clock, const std::string& target);

  /// The mark's.
  const std::string& path() const { return path_; }

  /// Why it is not known whether there is a mark, if so.
  const std::optional<platform::Error>& error() const { return error_; }

  /// Whether there was one.
  bool was_found() const { return !doubted_.empty(); }

  /// As SelectFile(), but a copy that an unfinished run may have left is not up to date, nor is what is no
  /// copy at all.
  Selection Select(const SelectionRules& rules, FolderPair& pair, const platform::Entry& file) const;

  /// Sets the mark, unless it was done before. To be called before anything is copied.
  platform::Status Begin();
  bool has_begun() const { return has_begun_; }
  /// Whether the mark is five minutes old.
  bool IsDueToMove() const;
  /// Everything copied so far is on the disk, and nothing is on its way: moves the mark.
  void MoveOn();
  /// What has the path of a copy in the target is not replaced, although that was due.
  void LeaveAsItIs(const std::string& copy);
  /// The run has ended, and the data of its copies is on the disk; only of a cancelled run the last names may
  /// still be on their way there: takes the mark away. When there were files that it did not come to, as
  /// `all_seen` says, or doubted copies that it left as they are, what was doubted before stays so.
  void End(bool all_seen);

 private:
  struct Span {
    platform::FileTime begin;
    platform::FileTime end;
  };
  std::string Content() const;
  void ReadSpans(const std::string& content);
  platform::Status CloseLastSpan();
  platform::Status Write();
  bool Doubts(const std::string& copy) const;

  platform::FileSystem& files_;
  platform::Clock& clock_;
  std::string path_;
  std::vector<Span> doubted_;  ///< of earlier runs; the last one may have no end yet
  bool last_is_open_ = false;
  bool has_begun_ = false;
  bool left_doubted_ = false;
  std::chrono::milliseconds written_{0};
  std::optional<platform::Error> error_;
};

}  // namespace engine
