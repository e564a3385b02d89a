#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/data/setup.h"
#include "engine/copy/content_comparison.h"
#include "engine/copy/copy_pass.h"
#include "engine/copy/pulse.h"
#include "engine/copy/report_order.h"
#include "engine/listener/listener.h"
#include "engine/selection/selection.h"
#include "engine/target/folder_pair.h"
#include "engine/target/overlap.h"
#include "engine/target/unfinished_run.h"
#include "engine/tools.h"
#include "engine/walk/file_pass.h"
#include "engine/walk/progress_share.h"

namespace engine {

/// What a walk covers. Paths are the setup's.
struct WalkPlan {
  std::string source;
  std::string target;  ///< empty: there is none (the list operation)
  std::vector<std::string> included_folders;
  bool include_subfolders;
  bool exclude_files_in_source_folder;
  bool compare_contents;  ///< of files that count as up to date
  bool read_back;         ///< what is copied
  SelectionRules rules;
};

/// Walks over the source folder's own files, the included folders and, when wished, everything below them,
/// folder by folder: the files of a folder come before its subfolders. Decides for each file what the
/// operation does with it, and does it. Keeps no more of the tree than the names still to be visited, the
/// identities of the target's folders (some 40 bytes each), and the folder pairs whose copies are on their
/// way; folders that come next may be listed ahead.
///
/// It decides folder by folder, and goes on while copies are on their way; what it reports to the listener
/// comes in the order of the walk all the same (see ReportOrder), and a run that is cancelled says nothing
/// about what came after the last file that was settled.
class FolderWalk {
 public:
  FolderWalk(const Tools& tools, Listener& listener, WalkPlan plan);

  /// Returns when everything is visited, the user has cancelled, or the run had to be terminated.
  const Totals& Run();

  /// The run ended before everything was visited.
  bool OperationTerminated() const { return copy_pass_.OperationTerminated(); }
  bool cancelled() const { return cancelled_; }

  /// Whether the copying of at least one file was tried.
  bool HasBegunToCopy() const { return unfinished_.has_begun(); }

  /// Everything is on the disk, or the run was cancelled: the next run need not doubt its copies. One that is
  /// cancelled after an interrupted one leaves the mark as it stands, so that the next doubts both.
  void EndUnfinished(bool cancelled);

 private:
  struct Pending {
    std::string source;
    TargetFolder::Ptr target;  ///< null: there is none
    bool with_subfolders;
    ProgressShare share = {};
    bool is_prefetched = false;  ///< may be listed already
  };

  // The order: folder_walk.cpp
  void PushRoots();
  /// Works on the files of one folder and pushes its subfolders.
  void BackupFolder(const Pending& folder);
  std::vector<Selection> SelectFiles(const Pending& folder, FolderPair& pair);
  std::shared_ptr<FolderCounts> CountsOf(const FolderPair& pair, const std::vector<Selection>& selections);
  void ActOnFiles(const Pending& folder, const std::shared_ptr<FolderPair>& pair,
                  const std::vector<Selection>& selections, const std::shared_ptr<FolderCounts>& counts);
  void PushSubfolders(const Pending& folder, const FolderPair& pair,
                      const std::vector<Selection>& selections);
  Pending Below(const Pending& folder, const std::string& name, bool with_subfolders) const;
  /// Lets the folders be listed that come next.
  void PrefetchNext();
  void PauseIfWished(const FolderCounts& counts);
  /// Asks the listener, too.
  bool Ended();

  // The folders that the setup names: folder_walk_included.cpp
  std::vector<Pending> IncludedFolders();
  std::optional<Pending> IncludedFolder(const std::string& name);
  void PlaceIncluded();
  void PlaceIncluded(const FolderPair& root, const std::vector<Selection>& selections);
  void Place(Pending& folder, const FolderPair& parents, const platform::Entry& source,
             const platform::Entry* target);

  // What is left out, with a line that says so; true when the folder is: folder_walk_guards.cpp
  bool RefuseOutsideSource(const platform::Folder& folder);
  bool RefuseOverlap(const Pending& folder, bool target_is_link);
  bool RefuseSharedTarget(const Pending& folder, FolderPair& pair);
  /// Its files, and those below it, count as failed when it comes to copying them.
  void RefuseTarget(const Pending& folder, FolderPair& pair, const std::string& line,
                    platform::ErrorKind why);
  std::optional<std::string> OtherRunIn(const FolderPair& pair);
  void DoubtTwins(const FolderPair& pair, std::vector<Selection>& selections) const;
  bool IsLeftOut(const std::string& path) const;
  void WarnAboutLinks(const Pending& folder, const FolderPair& pair);

  // The target's side: folder_walk_target.cpp
  bool OpenTarget(const Pending& folder, FolderPair& pair);
  platform::Status ListTarget(FolderPair& pair);
  bool EndRespellings(const FolderPair& pair);
  void RemoveLeftovers(const Pending& folder, FolderPair& pair);

  // To the listener, in the order of the walk: folder_walk.cpp
  void ReportBegin(const std::shared_ptr<FolderCounts>& counts);
  void ReportEnd(const std::shared_ptr<FolderCounts>& counts);
  void Tell(ReportOrder::Act act);
  void Write(const std::string& line);
  void Warn(const std::string& line);
  void WarnLeftOut(const std::string& line);
  /// A folder, or a part of the target, that could not be read.
  void WriteUnread(const std::string& line);
  void FailFolder(const std::string& path, const platform::Error& error);

  const Tools& tools_;
  Listener& listener_;
  WalkPlan plan_;
  Overlap overlap_;
  TargetRoot target_root_;
  Totals totals_;
  Pulse pulse_;
  ReportOrder order_;
  UnfinishedRun unfinished_;
  CopyPass copy_pass_;
  ContentComparison comparison_;
  FilePass file_pass_;
  TargetFolder::Ptr target_;      ///< null: there is none
  std::vector<Pending> pending_;  ///< the next one at the end
  bool is_placed_ = false;        ///< the included folders know whether their targets are there
  bool cancelled_ = false;
  bool paused_ = false;
};

}  // namespace engine
