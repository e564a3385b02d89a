#pragma once

#include <string>

#include "app/data/operation.h"
#include "engine/selection/filters.h"
#include "platform/file_system.h"

namespace engine {

/// Files larger than this many bytes fall under the rules for system and swap files.
inline constexpr std::int32_t LargeFileLimit = 10'487'560;

/// What holds for every file of a run.
struct SelectionRules {
  app::Operation operation = app::Operation::kCheckBackupState;
  Filters filters;
  /// Leaves out the picture caches that file managers keep ("thumbs.db").
  bool skip_picture_caches = false;
};

/// One file of the source and what the target holds under its name.
struct Candidate {
  const std::string& folder;  ///< path of the source folder
  const platform::Entry& source;
  const platform::Entry* target = nullptr;  ///< null: there is nothing
  bool is_doubted = false;                  ///< the copy is not to be believed: see UnfinishedRun

  bool TargetFileExists() const { return target != nullptr && target->kind == platform::EntryKind::kFile; }
  std::string SourcePath() const;
};

enum class Finding {
  kFilteredOut,
  kListed,         ///< the list operation met it
  kUnconditional,  ///< everything is copied, whatever the target holds
  kNew,
  kModified,
  kUpToDate,
};

struct Selection {
  Finding finding = Finding::kFilteredOut;
  bool selected = false;  ///< to be copied
  int skip_text = 0;      ///< number of the text that says why a large file is left out; 0: none
  const platform::Entry* target = nullptr;  ///< the candidate's
  bool needs_comparing = false;             ///< whether it is up to date, only the contents can tell
};

/// Whether the lower-cased path without the spaces around it ends in "thumbs.db".
bool IsPictureCache(std::string_view path);

/// Decides whether the operation acts on a file. What the program itself keeps in a target (temporary files,
/// the mark of an unfinished run) is filtered out where a target is a source. Keeps nothing between files and
/// asks no disk.
Selection SelectFile(const SelectionRules& rules, const Candidate& file);

}  // namespace engine
