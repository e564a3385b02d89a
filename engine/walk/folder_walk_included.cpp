// The folders that the setup names: which of them are walked, and where their copies are.

#include <set>
#include <string_view>
#include <unordered_map>

#include "engine/failure_text.h"
#include "engine/walk/folder_walk.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

using platform::Entry;
using platform::EntryKind;

bool IsFolderLink(platform::FileSystem& files, const std::string& path) {
  const auto entry = files.Stat(path);
  return entry && entry->kind == EntryKind::kFolderLink;
}

}  // namespace

/// Those that are to be walked, in the order of the setup; a folder that is named twice comes once.
std::vector<FolderWalk::Pending> FolderWalk::IncludedFolders() {
  std::vector<Pending> folders;
  std::set<std::string> seen;
  for (const std::string& name : plan_.included_folders) {
    if (!seen.insert(tools_.files.NameKey(name)).second) continue;
    if (auto folder = IncludedFolder(name)) folders.push_back(std::move(*folder));
  }
  return folders;
}

/// Nothing, and a line, when the name stands for no subfolder of the source that may be walked.
std::optional<FolderWalk::Pending> FolderWalk::IncludedFolder(const std::string& name) {
  if (!platform::IsPlainName(name)) {
    WarnLeftOut(NoticeLine(tools_, text::kNotAPlainName, name));
    return std::nullopt;
  }
  const std::string source = platform::JoinPath(plan_.source, name);
  const auto entry = tools_.files.Stat(source);
  if (!entry && !IsGone(entry.error())) {
    FailFolder(source, entry.error());
    return std::nullopt;
  }
  if (!entry || entry->kind != EntryKind::kFolder) {
    const bool is_link = entry && entry->kind == EntryKind::kFolderLink;
    WarnLeftOut(NoticeLine(tools_, is_link ? text::kLinkNotFollowed : text::kIncludedFolderGone, source));
    return std::nullopt;
  }
  // The setup may spell the name in another way than the disk.
  const auto real = tools_.files.RealPath(source);
  const Pending folder = Below({plan_.source, target_, true},
                               real ? std::string(platform::NameOf(*real)) : name, plan_.include_subfolders);
  const bool target_is_link = folder.target && IsFolderLink(tools_.files, folder.target->path());
  if (RefuseOverlap(folder, target_is_link)) return std::nullopt;
  return folder;
}

/// Where the files of the source folder take no part, the listings are had for this alone.
void FolderWalk::PlaceIncluded() {
  is_placed_ = true;
  if (!target_ || pending_.empty()) return;
  auto root = FolderPair::Open(tools_.files, plan_.source, target_);
  if (!root || !ListTarget(*root)) return;
  std::vector<Selection> selections;
  for (const Entry& entry : root->source().entries()) {
    Selection& selection = selections.emplace_back();
    if (entry.kind == EntryKind::kFolder) selection.target = root->TargetOf(entry);
  }
  PlaceIncluded(*root, selections);
}

void FolderWalk::PlaceIncluded(const FolderPair& root, const std::vector<Selection>& selections) {
  is_placed_ = true;
  std::unordered_map<std::string_view, Pending*> included;
  for (Pending& folder : pending_) included.emplace(platform::NameOf(folder.source), &folder);
  const std::vector<Entry>& entries = root.source().entries();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const auto found =
        entries[i].kind == EntryKind::kFolder ? included.find(entries[i].name) : included.end();
    if (found == included.end()) continue;
    Place(*found->second, root, entries[i], selections[i].target);
    found->second->is_prefetched = false;
  }
}

/// Notes what the listing of its parent's target says of a folder's target.
void FolderWalk::Place(Pending& folder, const FolderPair& parents, const Entry& source, const Entry* target) {
  if (!folder.target || target == nullptr || !IsFolder(target->kind)) return;
  folder.target->SetThere();
  if (IsCopyOperation(plan_.rules.operation))
    target_root_.TakeSpelling(parents.target_path(), *target, source.name);
}

}  // namespace engine
