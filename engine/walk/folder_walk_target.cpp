// What a walk does with the target's folder of each folder that it comes to.

#include "engine/failure_text.h"
#include "engine/walk/folder_walk.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {

using platform::Entry;
using platform::EntryKind;

/// False when nothing can be said about the files because the target folder cannot be read.
bool FolderWalk::OpenTarget(const Pending& folder, FolderPair& pair) {
  if (!folder.target || folder.target->refused() || !folder.target->is_there()) return true;
  if (!target_root_.IsThere()) {
    const platform::Error gone{platform::ErrorKind::kNotFound, 0, {}};
    WriteUnread(TargetFailureLine(tools_, text::kNotRead, folder.target->path(), gone));
    return false;
  }
  const platform::Status opened = ListTarget(pair);
  if (opened) return true;
  if (!HoldsNoCopies(opened.error().kind)) {
    FailFolder(folder.target->path(), opened.error());
    return false;
  }
  folder.target->SetMissing();
  if (opened.error().kind == platform::ErrorKind::kForeignLink)
    RefuseTarget(folder, pair, NoticeLine(tools_, text::kLinkInTarget, folder.target->path()),
                 platform::ErrorKind::kForeignLink);
  return true;
}

platform::Status FolderWalk::ListTarget(FolderPair& pair) {
  const platform::Status opened = pair.OpenTarget();
  return opened && EndRespellings(pair) ? pair.OpenTarget() : opened;
}

/// A run may have ended while it respelled the name of a folder or a file. True when that is put right, so
/// that the listing has to be had anew.
bool FolderWalk::EndRespellings(const FolderPair& pair) {
  bool ended = false;
  if (!IsCopyOperation(plan_.rules.operation)) return ended;
  for (const std::string& name : pair.Leftovers(EntryKind::kFolder)) {
    const std::string path = platform::JoinPath(pair.target_path(), name);
    if (!tools_.files.BelongsToUser(path)) continue;
    ended = true;
    const platform::Status done = tools_.files.EndRespelling(pair.target_path(), name);
    if (!done) Warn(FailureLine(tools_, text::kLeftoverNotRemoved, path, done.error()));
  }
  return ended;
}

void FolderWalk::RemoveLeftovers(const Pending& folder, FolderPair& pair) {
  if (!IsCopyOperation(plan_.rules.operation)) return;
  for (const std::string& name : pair.Leftovers(EntryKind::kFile)) {
    file_pass_.Beat(folder.share.begin);
    const std::string path = platform::JoinPath(pair.target_path(), name);
    const platform::Status removed = tools_.files.RemoveFile(path);
    if (!removed) Warn(FailureLine(tools_, text::kLeftoverNotRemoved, path, removed.error()));
  }
}

}  // namespace engine
