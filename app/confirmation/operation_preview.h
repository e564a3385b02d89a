#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/run/run_request.h"
#include "engine/selection/selection.h"
#include "engine/target/folder_pair.h"
#include "engine/target/overlap.h"
#include "engine/target/unfinished_run.h"
#include "platform/file_system.h"

namespace app {

/// What is known so far of a run that has not begun.
struct PreviewFindings {
  /// What one skip pattern leaves out among the source's own files and the included folders.
  struct Hits {
    std::string typed;
    std::string pattern;  ///< in the form of engine::NormaliseForMatch()
    std::vector<std::string> names;
  };

  bool target_in_source = false;  ///< the target is somewhere below the source
  bool source_in_target = false;
  bool first_level_known = false;         ///< `hits` and `first_level_names` are final
  std::vector<Hits> hits;                 ///< one for each pattern, in their order
  std::int64_t first_level_names = 0;     ///< that the patterns were held against
  std::vector<std::string> folders_gone;  ///< included folders that are no longer there
  std::int64_t files_met = 0;             ///< that pass the filters
  std::int64_t files_due = 0;             ///< that would be copied
  std::int64_t bytes_due = 0;             ///< their sizes
  std::int64_t room_needed = 0;           ///< the same, less the sizes of the copies that they replace
  std::string largest_due;                ///< the largest of them: its name
  std::int64_t largest_due_bytes = 0;
  std::int64_t files_same = 0;  ///< that seem up to date by size and time
  std::int64_t bytes_same = 0;  ///< their sizes
  std::int64_t folders_not_read = 0;
  std::int64_t kept_out_by_period = 0;   ///< files without a copy that pass every filter but the period
  std::int64_t first_level_folders = 0;  ///< subfolders of the source, included or not
  /// Links to folders among the source's own names, which no list offers and no run follows.
  std::vector<std::string> links;
  /// Names in the target of which the source has nothing; empty when it has anything of what the target has.
  std::vector<std::string> strangers;
  bool complete = false;  ///< nothing of the above will change any more

  /// What a newcomer may expect to be in: the subfolders of the source when none is included, else those of
  /// the included folders when they are not. On all levels.
  std::int64_t folders_outside = 0;
  std::int64_t files_outside = 0;
  bool outside_counted = false;
};

/// Looks at what a run would do, a folder at a time and by the rules of the run itself, and changes nothing
/// on any disk.
class OperationPreview {
 public:
  OperationPreview(platform::FileSystem& files, platform::Clock& clock, const engine::RunRequest& request);

  /// Looks into the next folder and its target folder; after the last one into what stays outside. False when
  /// there is nothing more to look into.
  bool Step();
  const PreviewFindings& findings() const { return findings_; }

 private:
  enum class Level { kSource, kIncluded, kBelow };
  struct Pending {
    std::string source;
    engine::TargetFolder::Ptr target;
    Level level = Level::kBelow;
  };

  void LookInto(const Pending& folder);
  void LookOutside();
  bool IsThere(const std::string& path);
  bool LandsInSource(const Pending& folder);
  void LookAtFirstLevel(const engine::FolderPair& pair);
  void NoteLink(const std::string& path, const platform::Entry& link);
  void FindStrangers(engine::FolderPair& pair);
  void CountKeptOut(const engine::Candidate& file);
  void HoldPatternsAgainst(const platform::Folder& source);
  void CountFiles(engine::FolderPair& pair);
  void PushSubfolders(const Pending& folder, const platform::Folder& source);

  platform::FileSystem& files_;
  Setup setup_;
  engine::Overlap overlap_;
  engine::TargetFolder::Ptr target_;
  engine::UnfinishedRun unfinished_;
  engine::SelectionRules rules_;
  engine::SelectionRules without_period_;
  std::vector<Pending> pending_;      ///< the next one at the end
  std::vector<std::string> outside_;  ///< folders that stay out, to be counted
  PreviewFindings findings_;
};

}  // namespace app
