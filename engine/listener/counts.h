#pragma once

#include <cstdint>
#include <string>

namespace engine {

/// What became of the files that were met. At the end of every run, also of one that was cancelled,
/// met == copied + up_to_date + filtered_out + failed + due, where `due` stays 0 in the copying operations.
struct FileCounts {
  std::int64_t met = 0;
  std::int64_t new_files = 0;       ///< passed the filters and have no copy yet
  std::int64_t modified_files = 0;  ///< passed the filters and differ from their copy
  std::int64_t copied = 0;
  std::int64_t up_to_date = 0;
  std::int64_t filtered_out = 0;
  std::int64_t failed = 0;    ///< not copied though selected, or not compared; each has a line in the report
  std::int64_t due = 0;       ///< new or modified, found by an operation that does not copy; or merely listed
  std::int64_t compared = 0;  ///< read on both sides because they seemed up to date, with success
  std::int64_t differed = 0;  ///< of these, with other content though the source had not changed meanwhile
  // Of the run's totals only:
  std::int64_t read_back = 0;       ///< copies that were read back from the disk
  std::int64_t not_as_written = 0;  ///< of these, other than written or unreadable; they count as failed
};

/// The files directly in one folder.
struct FolderCounts {
  std::string path;  ///< of the source folder, as the user knows it
  std::int64_t files_in_folder = 0;
  FileCounts counts;
  std::int64_t files_to_copy = 0;  ///< how many of them are selected
  std::int64_t bytes_met = 0;      ///< as in Totals
  std::int64_t bytes_compared = 0;
};

/// The whole run.
struct Totals {
  FileCounts counts;
  std::int64_t folders = 0;            ///< visited
  std::int64_t non_empty_folders = 0;  ///< of these, with files directly in them
  std::int64_t unread_folders = 0;     ///< could not be listed; each has a line in the report
  std::int64_t bytes_met = 0;          ///< of the files that pass the filters; 0 for an unreadable size
  std::int64_t bytes_copied = 0;       ///< by FileSizeOf()
  std::int64_t warnings = 0;           ///< lines about things that are not in the backup and no failed files
  std::int64_t bytes_compared = 0;     ///< of one side
  std::int64_t bytes_read_back = 0;
  std::int64_t left_out_folders = 0;  ///< left out with a warning: nothing in them was looked at
};

}  // namespace engine
