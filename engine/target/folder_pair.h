#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/target/name_twins.h"
#include "engine/target/target_folder.h"
#include "engine/target/target_root.h"
#include "platform/file_system.h"

namespace engine {

/// Whether a target folder that cannot be opened for that reason can hold no copies: it is not there, or
/// something else is.
constexpr bool HoldsNoCopies(platform::ErrorKind kind) {
  return kind == platform::ErrorKind::kNotFound || kind == platform::ErrorKind::kNotAFolder ||
         kind == platform::ErrorKind::kForeignLink;
}

/// A source folder and its target folder, each listed once and joined by name. All decisions about the files
/// in them are made from these two listings. Copies that are on their way share the folders.
class FolderPair {
 public:
  /// Lists the source folder. `target` is null where there is none.
  static platform::Result<FolderPair> Open(platform::FileSystem& files, const std::string& source,
                                           TargetFolder::Ptr target);

  /// Lists the target folder. kNotFound when there is none yet; kForeignLink when somebody else laid a link
  /// there, but for the target of the run itself, to which any link may lead.
  platform::Status OpenTarget();
  /// Forgets the listing: nothing may go there.
  void CloseTarget() { target_.reset(); }

  /// Makes sure that the target folder is there and open; see TargetFolder::Ensure().
  platform::Status EnsureTarget(TargetRoot& root);

  const platform::Folder& source() const { return *source_; }
  const std::shared_ptr<const platform::Folder>& shared_source() const { return source_; }
  /// Only where there is a target.
  const TargetFolder& place() const { return *place_; }
  const std::string& target_path() const { return target_path_; }
  bool has_target() const { return target_ != nullptr; }
  const platform::Folder& target() const { return *target_; }
  const std::shared_ptr<platform::Folder>& shared_target() const { return target_; }

  /// What the target listing has for a file or folder of the source listing: what has its very name or,
  /// where nothing does, another spelling of it (see NameTwins). Null for nothing. Fastest when it is
  /// asked in the order of the source listing; each is to be asked about once.
  const platform::Entry* TargetOf(const platform::Entry& source);

  /// Whether what has a file's name in the target is no copy of it: a link, or the very file itself.
  bool IsNoCopy(const platform::Entry& source_file, const platform::Entry& target) const;

  /// Whether the target folder is the source folder, whatever paths lead to them.
  bool IsOneFolder() const;

  /// Files, or folders, of the target listing that an interrupted run left behind: a temporary name that the
  /// source does not have.
  std::vector<std::string> Leftovers(platform::EntryKind kind) const;

 private:
  FolderPair(platform::FileSystem& files, std::unique_ptr<platform::Folder> source, TargetFolder::Ptr target);
  /// The place of a name in the target listing; its size when it is not there.
  std::size_t PlaceInTarget(const std::string& name);
  const platform::Entry* OtherSpellingOf(const platform::Entry& source);

  platform::FileSystem* files_;
  std::shared_ptr<const platform::Folder> source_;
  TargetFolder::Ptr place_;
  std::string target_path_;
  std::shared_ptr<platform::Folder> target_;
  /// Two listings of one file system mostly come in the same order, so the next entry is tried before the
  /// index.
  std::size_t next_ = 0;
  std::unordered_map<std::string_view, std::size_t> index_;
  std::optional<NameTwins> spellings_;
};

}  // namespace engine
