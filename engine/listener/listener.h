#pragma once

#include <cstdint>
#include <string>

#include "engine/listener/counts.h"

namespace engine {

/// A question about one file or folder, with the answers Yes (go on with the others) and No (stop the run).
struct Question {
  std::string statement;  ///< what is wrong; may have several lines
  std::string question;
};

/// How far a run is.
struct Reached {
  double fraction = 0;     ///< of the walk; 0 to 1, never less than before
  std::int64_t bytes = 0;  ///< copied and compared, with what is done of files on their way
};

/// Hears from the engine what happens during a run, and is asked by it. All calls come on the one thread.
/// Folders do not nest; they, the lines and the copied files come in the order of the walk, and a file counts
/// as copied only when it has its name. Since many copies are on their way at a time, that may be some
/// seconds after CopyBegun() of the file.
class Listener {
 public:
  virtual ~Listener() = default;

  /// A folder's files have been counted and selected; what came of them is told from now on.
  virtual void FolderBegun(const FolderCounts& folder) = 0;
  /// All files of the folder are dealt with, or the run was stopped among them.
  virtual void FolderEnded(const FolderCounts& folder) = 0;

  /// A line that the report shows in every case: a failure, a refusal, a warning. No line end.
  virtual void WriteLine(const std::string& text) = 0;

  /// A file is about to be copied, or is what the run now waits for. To be shown; says nothing about the
  /// order.
  virtual void CopyBegun(const std::string& source_path) = 0;
  /// A file has been copied; the sums of the run so far.
  virtual void CopyEnded(std::int64_t bytes_copied, std::int64_t files_copied) = 0;

  /// The run waits for the copy of this file, which is read back from the disk. To be shown.
  virtual void ReadingBack(const std::string& source_path) = 0;

  /// The run waits for this file, whose content is compared with that of its copy. To be shown.
  virtual void Comparing(const std::string& source_path) = 0;
  /// What has been compared so far: bytes of one side, and files. Reported now and then.
  virtual void Compared(std::int64_t bytes, std::int64_t files) = 0;

  /// Whether the run now waits until what was copied is safely on the disk.
  virtual void Saving(bool is_saving) = 0;

  /// How far the run is. Reported at most every 100 ms, also inside a big file.
  virtual void Progress(const Reached& reached) = 0;

  /// Lets pending events run. Called often enough to keep a window alive, every 50 to 100 ms while nothing
  /// else takes long.
  virtual void Breathe() = 0;

  /// Whether the user has asked to stop. Asked between files, and about twenty
  /// times a second while the run waits for copies.
  virtual bool StopRequested() = 0;

  /// Yes: go on. So it is in an unattended run, in whose report there is only the statement: what this file
  /// or folder needs is no reason to leave all others without a backup, night after night.
  virtual bool AskWhetherToGoOn(const Question& question) = 0;

  /// A message that is to be acknowledged; in an unattended run it is only written to the report.
  virtual void Tell(const std::string& text) = 0;

  /// Whether the run is to hold after the first folder in which a file was copied. Asked at the end of such
  /// folders until it has held once, since the user may change his mind meanwhile.
  virtual bool PauseWished() = 0;

  /// Holds the run until the user lets it go on or cancels it; returns at once in an unattended run.
  virtual void Pause() = 0;
};

}  // namespace engine
