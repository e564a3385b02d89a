#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/data/operation.h"

namespace report {

class frmReport;

/// A piece of a report line.
struct Phrase {
  std::string text;
  bool new_line = true;
  bool indent = true;      ///< four spaces come first when it would begin a line
  bool left_open = false;  ///< without line end, and the next folder's head line goes on after it
  bool operator==(const Phrase&) const = default;
};

/// The files of one folder as the phrases count them.
struct FolderResult {
  std::int64_t files_in_folder = 0;
  std::int64_t not_backed_up = 0;  ///< had no copy before
  std::int64_t modified = 0;
  std::int64_t copied = 0;
};

// --- The phrases, spaces included.

/// "   12 files in " before the folder. A count of -1 is "not known"; of more than five digits the last five
/// are shown.
std::string HeadLine(std::int64_t files_in_folder, const std::string& shown_folder);

/// The path with every occurrence of `root` replaced by `placeholder`. A root that is empty or longer than
/// the path is not replaced; one that is a single separator ("/") only at the beginning, where it means the
/// root.
std::string WithPlaceholder(const std::string& path, const std::string& root, const std::string& placeholder);

/// What was copied of a folder by "Back up all files in setup" or by "Back up new and modified".
std::vector<Phrase> CopyResult(app::Operation operation, const FolderResult& folder);

/// What of a folder is new or modified; none when nothing is.
std::vector<Phrase> CheckResult(const FolderResult& folder);

std::vector<Phrase> DeletionResult(std::int64_t files_in_folder, std::int64_t deleted);

// --- The same, written to the report window.

/// The head line of a folder, left open for its result. `root` is the source or target folder.
void DisplayNumFilesInFolder(frmReport& window, bool source_side, const std::string& path,
                             const std::string& root, std::int64_t files_in_folder);
void DisplayFilesCopied(frmReport& window, app::Operation operation, const FolderResult& folder);
void DisplayNewAndModifiedFiles(frmReport& window, const FolderResult& folder);
void DisplayFilesDeleted(frmReport& window, std::int64_t files_in_folder, std::int64_t deleted);

}  // namespace report
