#include "app/operation_preview.h"

#include <algorithm>
#include <set>

#include "engine/wildcard_match.h"
#include "platform/path.h"

namespace app {
namespace {

using platform::Entry;
using platform::EntryKind;

bool IsLeftOut(const std::string& path, EntryKind kind, const std::string& pattern) {
  // A folder's files have its path with a separator behind it.
  const bool folder = kind == EntryKind::kFolder;
  return engine::PathMatchesSkipFilepaths(folder ? platform::FolderForm(path) : path, {pattern});
}

/// The folders as the run takes them, each included folder once.
Setup WithPlainFolders(platform::FileSystem& files, Setup setup) {
  setup.SourceFolder = platform::WithoutTrailingSeparators(setup.SourceFolder);
  setup.TargetFolder = platform::WithoutTrailingSeparators(setup.TargetFolder);
  std::set<std::string> seen;
  std::erase_if(setup.IncludedFolders,
                [&](const std::string& name) { return !seen.insert(files.NameKey(name)).second; });
  return setup;
}

}  // namespace

OperationPreview::OperationPreview(platform::FileSystem& files, const engine::RunRequest& request)
    : files_(files),
      setup_(WithPlainFolders(files, request.setup)),
      nesting_(files, setup_.SourceFolder, setup_.TargetFolder),
      rules_(engine::RulesOf(request)) {
  findings_.target_in_source = nesting_.TargetIsInSource();
  findings_.source_in_target = nesting_.SourceIsInTarget();
  for (const std::string& typed : engine::SplitSkipFilepaths(setup_.SkipFilepaths))
    findings_.hits.push_back({typed, engine::NormaliseForMatch(typed), {}});
  for (auto name = setup_.IncludedFolders.rbegin(); name != setup_.IncludedFolders.rend(); ++name) {
    pending_.push_back({platform::JoinPath(setup_.SourceFolder, *name),
                        platform::JoinPath(setup_.TargetFolder, *name), Level::kIncluded});
  }
  pending_.push_back({setup_.SourceFolder, setup_.TargetFolder, Level::kSource});
}

bool OperationPreview::Step() {
  if (pending_.empty()) return false;
  const Pending folder = std::move(pending_.back());
  pending_.pop_back();
  if (!nesting_.IsTarget(folder.source)) LookInto(folder);
  findings_.complete = pending_.empty();
  return true;
}

void OperationPreview::LookInto(const Pending& folder) {
  if (folder.level == Level::kIncluded && !IsThere(folder.source)) return;
  auto pair = engine::FolderPair::Open(files_, folder.source, folder.target);
  if (folder.level == Level::kSource) findings_.first_level_known = true;
  if (!pair) {
    ++findings_.folders_not_read;
    return;
  }
  if (nesting_.IsTarget(pair->source())) return;
  if (pair->source().is_mount_point() && folder.level != Level::kSource) return;
  if (folder.level == Level::kSource) {
    HoldPatternsAgainst(pair->source());
    if (setup_.ExcludeFilesInSourceFolder) return;
  }
  // Without a listing of the target everything counts as new there, as it does when there is no such folder
  // yet.
  static_cast<void>(pair->OpenTarget());
  CountFiles(*pair);
  if (folder.level != Level::kSource && setup_.IncludeSubfolders) PushSubfolders(folder, pair->source());
}

/// Links to folders are not followed by a run either, but they are there.
bool OperationPreview::IsThere(const std::string& path) {
  const auto entry = files_.Look(path);
  const bool there = entry && platform::IsFolder(entry->kind);
  if (!there) findings_.folders_gone.emplace_back(platform::NameOf(path));
  return entry && entry->kind == EntryKind::kFolder;
}

void OperationPreview::HoldPatternsAgainst(const platform::Folder& source) {
  std::set<std::string> included;
  for (const std::string& name : setup_.IncludedFolders) included.insert(files_.NameKey(name));
  for (const Entry& entry : source.entries()) {
    const bool taken = entry.kind == EntryKind::kFolder
                           ? included.contains(files_.NameKey(entry.name))
                           : entry.kind == EntryKind::kFile && !setup_.ExcludeFilesInSourceFolder;
    if (!taken) continue;
    ++findings_.first_level_names;
    const std::string path = platform::JoinPath(source.path(), entry.name);
    for (PreviewFindings::Hits& hits : findings_.hits) {
      if (IsLeftOut(path, entry.kind, hits.pattern)) hits.names.push_back(entry.name);
    }
  }
}

void OperationPreview::CountFiles(engine::FolderPair& pair) {
  for (const Entry& entry : pair.source().entries()) {
    if (entry.kind != EntryKind::kFile) continue;
    const Entry* const target = pair.TargetOf(entry);
    const engine::Selection selection = engine::SelectFile(rules_, {pair.source().path(), entry, target});
    if (selection.finding != engine::Finding::kFilteredOut) ++findings_.files_met;
    if (!selection.selected) continue;
    ++findings_.files_due;
    const std::int64_t size = std::max<std::int64_t>(entry.size, 0);
    findings_.bytes_due += size;
    if (size > findings_.largest_due_bytes) {
      findings_.largest_due_bytes = size;
      findings_.largest_due = entry.name;
    }
    findings_.room_needed += size - (target != nullptr ? std::max<std::int64_t>(target->size, 0) : 0);
  }
}

void OperationPreview::PushSubfolders(const Pending& folder, const platform::Folder& source) {
  for (const Entry& entry : source.entries()) {
    if (entry.kind != EntryKind::kFolder) continue;
    pending_.push_back({platform::JoinPath(folder.source, entry.name),
                        platform::JoinPath(folder.target, entry.name), Level::kBelow});
  }
}

}  // namespace app
