// What a walk leaves out because it does not belong to the source, or because its copies would land in the
// wrong place.

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "base/utf8.h"
#include "engine/failure_text.h"
#include "engine/own_names.h"
#include "engine/target/run_lock.h"
#include "engine/walk/folder_walk.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {

using platform::Entry;
using platform::EntryKind;

/// What only the open folder shows: that it is the target, or another volume.
bool FolderWalk::RefuseOutsideSource(const platform::Folder& folder) {
  if (overlap_.IsTarget(folder)) {
    Write(NoticeLine(tools_, text::kTargetInSource, folder.path()));
    return true;
  }
  if (folder.is_mount_point() && folder.path() != plan_.source) {
    if (!IsLeftOut(folder.path())) WarnLeftOut(NoticeLine(tools_, text::kMountNotFollowed, folder.path()));
    return true;
  }
  return false;
}

/// The target inside the source is left out; so is a folder whose copies would land in the source.
bool FolderWalk::RefuseOverlap(const Pending& folder, bool target_is_link) {
  if (overlap_.IsTarget(folder.source)) {
    Write(NoticeLine(tools_, text::kTargetInSource, folder.source));
    return true;
  }
  if (folder.target && overlap_.LandsInSource(folder.target->path(), target_is_link)) {
    WarnLeftOut(NoticeLine(tools_, text::kWouldOverwriteSource, folder.source));
    return true;
  }
  return false;
}

/// Left out when the copies would take the place of what is in the source. A target folder that is another's
/// is closed to this one.
bool FolderWalk::RefuseSharedTarget(const Pending& folder, FolderPair& pair) {
  if (!pair.has_target()) return false;
  if (pair.IsOneFolder() || overlap_.IsSource(pair.target())) {
    WarnLeftOut(NoticeLine(tools_, text::kWouldOverwriteSource, folder.source));
    return true;
  }
  if (!target_root_.Claim(pair.target())) {
    RefuseTarget(folder, pair, NoticeLine(tools_, text::kFolderNameTaken, folder.source),
                 platform::ErrorKind::kNameTaken);
  } else if (const auto other = OtherRunIn(pair)) {
    const std::string line = NoticeLine(tools_, text::kFolderBelowInUse, folder.target->path());
    RefuseTarget(folder, pair, line + ", " + *other, platform::ErrorKind::kInUse);
  } else if (pair.target().is_link() && !folder.target->is_root()) {
    Write(NoticeLine(tools_, text::kCopiesLieElsewhere, folder.target->path()));
  }
  return false;
}

void FolderWalk::RefuseTarget(const Pending& folder, FolderPair& pair, const std::string& line,
                              platform::ErrorKind why) {
  Warn(line);
  folder.target->Refuse({why, 0, {}});
  pair.CloseTarget();
}

/// Who copies into a folder of the target as into a target of its own. The two would take each other's
/// temporary files for leftovers.
std::optional<std::string> FolderWalk::OtherRunIn(const FolderPair& pair) {
  if (pair.place().is_root() || !IsCopyOperation(plan_.rules.operation)) return std::nullopt;
  const std::vector<Entry>& entries = pair.target().entries();
  const bool has_lock =
      std::any_of(entries.begin(), entries.end(), [](const Entry& entry) { return entry.name == kRunLock; });
  return has_lock ? HolderOf(tools_, pair.target_path()) : std::nullopt;
}

/// A file that has no copy, and one as long and as old that has: where the target takes the two names for
/// one, that copy may be the other's.
void FolderWalk::DoubtTwins(const FolderPair& pair, std::vector<Selection>& selections) const {
  const auto is_new = [](const Selection& selection) { return selection.finding == Finding::kNew; };
  if (std::none_of(selections.begin(), selections.end(), is_new)) return;
  const std::vector<Entry>& entries = pair.source().entries();
  std::unordered_multimap<std::int64_t, std::size_t> copied;  // by size
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (selections[i].finding == Finding::kUpToDate && entries[i].size > 0)
      copied.emplace(entries[i].size, i);
  }
  for (std::size_t i = 0; i < entries.size() && !copied.empty(); ++i) {
    if (!is_new(selections[i]) || !copied.contains(entries[i].size)) continue;
    std::optional<platform::Result<Entry>> known;  // asked for when there is one as long and as old
    const auto [first, last] = copied.equal_range(entries[i].size);
    for (auto it = first; it != last; ++it) {
      const Entry& other = entries[it->second];
      if (other.modified != entries[i].modified) continue;
      if (!known) known = tools_.files.Stat(platform::JoinPath(pair.target_path(), entries[i].name));
      if (!*known) break;
      Selection& twin = selections[it->second];
      if (twin.target->number == (*known)->number ||
          base::utf8::ToLower(other.name) == base::utf8::ToLower(entries[i].name))
        twin.needs_comparing = true;
    }
  }
}

/// Whether a pattern leaves out everything in a folder of the source.
bool FolderWalk::IsLeftOut(const std::string& path) const {
  return PathMatchesSkipFilepaths(platform::FolderForm(path), plan_.rules.filters.skip_patterns);
}

void FolderWalk::WarnAboutLinks(const Pending& folder, const FolderPair& pair) {
  for (const Entry& entry : pair.source().entries()) {
    if (entry.kind == EntryKind::kFile || entry.kind == EntryKind::kFolder) continue;
    const std::string path = platform::JoinPath(folder.source, entry.name);
    int lead = 0;
    if (entry.kind == EntryKind::kFolderLink && folder.with_subfolders && !IsLeftOut(path))
      lead = text::kLinkNotFollowed;
    if (entry.kind == EntryKind::kDeadLink) lead = text::kDeadLink;
    if (entry.kind == EntryKind::kOther) lead = text::kNotAFile;
    const bool is_folder = lead == text::kLinkNotFollowed;
    if (lead != 0 && (is_folder || PassesFilters(plan_.rules.filters, folder.source, entry)))
      Warn(NoticeLine(tools_, lead, path));
  }
}

}  // namespace engine
