#pragma once

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/target_root.h"
#include "platform/file_system.h"

namespace engine {

/// A source folder and its target folder, each listed once and joined by name. All decisions about the files
/// in them are made from these two listings. Copies that are on their way share the folders.
class FolderPair {
 public:
  /// Lists the source folder.
  static platform::Result<FolderPair> Open(platform::FileSystem& files, const std::string& source,
                                           const std::string& target);

  /// Lists the target folder. kNotFound when there is none yet.
  platform::Status OpenTarget();

  /// Makes sure that the target folder is there and open, creating it and the folders above it where they are
  /// missing. `root`, the target of the run, is never created, nor is anything made where it lay: kNotFound
  /// when it is gone.
  platform::Status EnsureTarget(const TargetRoot& root);

  const platform::Folder& source() const { return *source_; }
  const std::shared_ptr<const platform::Folder>& shared_source() const { return source_; }
  const std::string& target_path() const { return target_path_; }
  bool has_target() const { return target_ != nullptr; }
  const platform::Folder& target() const { return *target_; }
  const std::shared_ptr<platform::Folder>& shared_target() const { return target_; }

  /// What the target listing has under the name of a source file, which need not be a file; null for nothing.
  /// Fastest when it is asked in the order of the source listing.
  const platform::Entry* TargetOf(const platform::Entry& source_file);

  /// Whether the target folder is the source folder, whatever paths lead to them.
  bool IsOneFolder() const;

  /// The keys of the names under which the target listing has links to folders.
  std::set<std::string> TargetLinks() const;

  /// Files of the target listing that an interrupted run left behind: a temporary name that the source does
  /// not have.
  std::vector<std::string> Leftovers();

 private:
  FolderPair(platform::FileSystem& files, std::unique_ptr<platform::Folder> source, std::string target_path);
  platform::Status CreateWithParents(const std::string& path, const std::string& root);
  /// The place of a name in the target listing; its size when it is not there.
  std::size_t PlaceInTarget(const std::string& name);

  platform::FileSystem* files_;
  std::shared_ptr<const platform::Folder> source_;
  std::string target_path_;
  std::shared_ptr<platform::Folder> target_;
  /// Two listings of one file system mostly come in the same order, so the next entry is tried before the
  /// index.
  std::size_t next_ = 0;
  std::unordered_map<std::string, std::size_t> index_;
};

}  // namespace engine
