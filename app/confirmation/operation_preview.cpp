#include "app/confirmation/operation_preview.h"

#include <algorithm>
#include <array>
#include <set>

#include "base/ascii_case.h"
#include "engine/own_names.h"
#include "engine/selection/wildcard_match.h"
#include "platform/path.h"

namespace app {
namespace {

using platform::Entry;
using platform::EntryKind;

bool IsLeftOut(const std::string& path, EntryKind kind, const std::string& pattern) {
  // A folder's files have its path followed by a separator.
  const bool folder = kind == EntryKind::kFolder;
  return engine::PathMatchesSkipFilepaths(folder ? platform::FolderForm(path) : path, {pattern});
}

/// What systems put into the root of a disk.
bool IsOfTheSystem(const std::string& name) {
  static constexpr std::array kNames = {"$recycle.bin", "system volume information", "lost+found",
                                        "recycler"};
  const std::string lower = base::LowerAscii(name);
  return lower.starts_with(".trash") || std::ranges::find(kNames, lower, [](const char* text) {
                                          return std::string_view(text);
                                        }) != kNames.end();
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

OperationPreview::OperationPreview(platform::FileSystem& files, platform::Clock& clock,
                                   const engine::RunRequest& request)
    : files_(files),
      setup_(WithPlainFolders(files, request.setup)),
      overlap_(files, setup_.SourceFolder, setup_.TargetFolder),
      target_(std::make_shared<engine::TargetFolder>(setup_.TargetFolder, setup_.SourceFolder)),
      unfinished_(files, clock, setup_.TargetFolder),
      rules_(engine::RulesOf(request)),
      without_period_(rules_) {
  without_period_.filters.modified_since.reset();
  findings_.target_in_source = overlap_.TargetIsInSource();
  findings_.source_in_target = overlap_.SourceIsInTarget();
  for (const std::string& typed : engine::SplitSkipFilepaths(setup_.SkipFilepaths))
    findings_.hits.push_back({typed, engine::NormaliseForMatch(typed), {}});
  for (auto name = setup_.IncludedFolders.rbegin(); name != setup_.IncludedFolders.rend(); ++name) {
    pending_.push_back({platform::JoinPath(setup_.SourceFolder, *name),
                        engine::TargetFolder::Below(target_, *name), Level::kIncluded});
  }
  pending_.push_back({setup_.SourceFolder, target_, Level::kSource});
}

bool OperationPreview::Step() {
  if (!pending_.empty()) {
    const Pending folder = std::move(pending_.back());
    pending_.pop_back();
    if (!overlap_.IsTarget(folder.source)) LookInto(folder);
  } else if (!outside_.empty()) {
    LookOutside();
  } else {
    return false;
  }
  findings_.complete = pending_.empty();
  findings_.outside_counted = findings_.complete && outside_.empty();
  return true;
}

void OperationPreview::LookInto(const Pending& folder) {
  const bool is_source = folder.level == Level::kSource;
  if (folder.level == Level::kIncluded && !IsThere(folder.source)) return;
  if (!is_source && LandsInSource(folder)) return;
  auto pair = engine::FolderPair::Open(files_, folder.source, folder.target);
  if (is_source) findings_.first_level_known = true;
  if (!pair) {
    ++findings_.folders_not_read;
    return;
  }
  if (overlap_.IsTarget(pair->source())) findings_.target_in_source = true;
  if (overlap_.IsTarget(pair->source()) || (!is_source && pair->IsOneFolder())) return;
  if (pair->source().is_mount_point() && !is_source) return;
  // Without a listing of the target everything counts as new there, as it does when there is no such folder
  // yet.
  const platform::Status target = pair->OpenTarget();
  if (is_source) {
    LookAtFirstLevel(*pair);
    FindStrangers(*pair);
    if (setup_.ExcludeFilesInSourceFolder) return;
  }
  if (!target && !engine::HoldsNoCopies(target.error().kind)) {
    ++findings_.folders_not_read;
    return;
  }
  CountFiles(*pair);
  if (!is_source) PushSubfolders(folder, pair->source());
}

/// Those of a folder that stays out, and of all below it.
void OperationPreview::LookOutside() {
  const std::string path = std::move(outside_.back());
  outside_.pop_back();
  if (overlap_.IsTarget(path)) return;
  ++findings_.folders_outside;
  const auto folder = files_.OpenFolder(path);
  if (!folder || (*folder)->is_mount_point()) return;
  for (const Entry& entry : (*folder)->entries()) {
    if (entry.kind == EntryKind::kFile) ++findings_.files_outside;
    if (entry.kind == EntryKind::kFolder) outside_.push_back(platform::JoinPath(path, entry.name));
  }
}

/// As the run sees it: the copies would then take the place of what is in the source.
bool OperationPreview::LandsInSource(const Pending& folder) {
  const std::string path = folder.target->path();
  const auto target = files_.Stat(path);
  return overlap_.LandsInSource(path, target && target->kind == EntryKind::kFolderLink);
}

void OperationPreview::LookAtFirstLevel(const engine::FolderPair& pair) {
  const platform::Folder& source = pair.source();
  HoldPatternsAgainst(source);
  for (const Entry& entry : source.entries()) {
    const std::string path = platform::JoinPath(source.path(), entry.name);
    if (entry.kind == EntryKind::kFolderLink) NoteLink(path, entry);
    if (entry.kind != EntryKind::kFolder || IsOfTheSystem(entry.name) || overlap_.IsTarget(path)) continue;
    ++findings_.first_level_folders;
    if (setup_.IncludedFolders.empty()) outside_.push_back(path);
  }
}

/// Of an included link, and of one further down, the run itself tells. Windows keeps hidden links to its
/// folders under the names that they had in its older versions.
void OperationPreview::NoteLink(const std::string& path, const Entry& link) {
  const platform::Attributes of_windows = platform::kHidden | platform::kSystem;
  if (setup_.IncludedFolders.empty() || (link.attributes & of_windows) == of_windows) return;
  const auto is_it = [&](const std::string& name) {
    return files_.NameKey(name) == files_.NameKey(link.name);
  };
  if (std::ranges::any_of(setup_.IncludedFolders, is_it)) return;
  const auto leaves_out = [&](const auto& hits) { return IsLeftOut(path, EntryKind::kFolder, hits.pattern); };
  if (std::ranges::none_of(findings_.hits, leaves_out)) findings_.links.push_back(link.name);
}

/// A target in which there is nothing of the source is perhaps not meant for it.
void OperationPreview::FindStrangers(engine::FolderPair& pair) {
  if (!pair.has_target()) return;
  std::set<std::string> own;
  for (const Entry& entry : pair.source().entries()) own.insert(files_.NameKey(entry.name));
  for (const Entry& entry : pair.target().entries()) {
    if (own.contains(files_.NameKey(entry.name))) return findings_.strangers.clear();
    const bool counts = !IsOfTheSystem(entry.name) && !engine::IsTheProgramsOwn(entry.name);
    if (counts) findings_.strangers.push_back(entry.name);
  }
}

/// Links to folders are not followed by a run either, but they are there.
bool OperationPreview::IsThere(const std::string& path) {
  const auto entry = files_.Stat(path);
  if (!entry && !IsGone(entry.error())) {
    ++findings_.folders_not_read;
    return false;
  }
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
    const engine::Selection selection = unfinished_.Select(rules_, pair, entry);
    const Entry* const target = selection.target;
    if (selection.finding == engine::Finding::kFilteredOut) {
      CountKeptOut({pair.source().path(), entry, target});
      continue;
    }
    ++findings_.files_met;
    const std::int64_t size = std::max<std::int64_t>(entry.size, 0);
    if (selection.finding == engine::Finding::kUpToDate) {
      ++findings_.files_same;
      findings_.bytes_same += size;
    }
    if (!selection.selected) continue;
    ++findings_.files_due;
    findings_.bytes_due += size;
    if (size > findings_.largest_due_bytes) {
      findings_.largest_due_bytes = size;
      findings_.largest_due = entry.name;
    }
    findings_.room_needed += size - (target != nullptr ? std::max<std::int64_t>(target->size, 0) : 0);
  }
}

void OperationPreview::CountKeptOut(const engine::Candidate& file) {
  if (file.target != nullptr || !rules_.filters.modified_since) return;
  const auto finding = engine::SelectFile(without_period_, file).finding;
  if (finding != engine::Finding::kFilteredOut) ++findings_.kept_out_by_period;
}

void OperationPreview::PushSubfolders(const Pending& folder, const platform::Folder& source) {
  for (const Entry& entry : source.entries()) {
    if (entry.kind != EntryKind::kFolder) continue;
    std::string path = platform::JoinPath(folder.source, entry.name);
    if (!setup_.IncludeSubfolders) {
      outside_.push_back(std::move(path));
    } else {
      pending_.push_back(
          {std::move(path), engine::TargetFolder::Below(folder.target, entry.name), Level::kBelow});
    }
  }
}

}  // namespace app
