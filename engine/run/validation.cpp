#include "engine/run/validation.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "base/utf8.h"
#include "engine/target/overlap.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

using platform::EntryKind;

constexpr const char* kNothingToDoTitle = "Setup implies nothing to do";
constexpr const char* kNothingToDoMessage =
    "Files in the source folder are excluded,\r\n"
    "and no subfolders are excluded,\r\n"
    "so there is nothing to do!";

bool Holds(const platform::Folder& folder, EntryKind kind) {
  return std::any_of(folder.entries().begin(), folder.entries().end(),
                     [kind](const platform::Entry& entry) { return entry.kind == kind; });
}

/// The program does not answer while it looks for a file; from then on the run, which does, may look.
constexpr std::chrono::seconds kLongestSearch{2};

/// Whether a folder, or with `below` any folder under it, holds a file. So may a folder that cannot be read,
/// and another volume: the run says of both why they are left out.
bool MayHoldFiles(const Tools& tools, const std::string& path, bool below,
                  std::chrono::milliseconds search_until) {
  std::vector<std::string> pending{path};
  while (!pending.empty()) {
    if (tools.clock.Monotonic() > search_until) return true;
    const std::string next = std::move(pending.back());
    pending.pop_back();
    const auto folder = tools.files.OpenFolder(next);
    if (!folder && folder.error().kind != platform::ErrorKind::kNotFound) return true;
    if (!folder) continue;
    if ((*folder)->is_mount_point() || Holds(**folder, EntryKind::kFile)) return true;
    if (!below) return false;
    for (const platform::Entry& entry : (*folder)->entries()) {
      if (entry.kind == EntryKind::kFolder) pending.push_back(platform::JoinPath(next, entry.name));
    }
  }
  return false;
}

/// Whether the setup can come upon a file at all.
bool SetupMayHoldFiles(const Tools& tools, const app::Setup& setup, bool files_in_source) {
  if (files_in_source && !setup.ExcludeFilesInSourceFolder) return true;
  const auto search_until = tools.clock.Monotonic() + kLongestSearch;
  return std::any_of(setup.IncludedFolders.begin(), setup.IncludedFolders.end(),
                     [&](const std::string& name) {
                       const std::string folder = platform::JoinPath(setup.SourceFolder, name);
                       return MayHoldFiles(tools, folder, setup.IncludeSubfolders, search_until);
                     });
}

Refusal Numbered(const Tools& tools, std::int16_t status, int text, int title) {
  return {status, tools.texts.GetProgramText(text), tools.texts.GetProgramText(title)};
}

}  // namespace

std::optional<Refusal> CheckSource(const Tools& tools, const app::Setup& setup,
                                   const std::function<void(const std::string&)>& show_note) {
  if (setup.ExcludeFilesInSourceFolder && setup.IncludedFolders.empty()) {
    return Refusal{kNothingToDo, kNothingToDoMessage, kNothingToDoTitle, kNothingToDoTitle};
  }
  if (setup.SourceFolder.empty()) {
    return Numbered(tools, kNoFilesInSource, text::kSourceIsEmpty, text::kTitleNothingToDo);
  }
  const auto source = tools.files.OpenFolder(setup.SourceFolder);
  if (!source) {
    Refusal refusal = Numbered(tools, kSourceNotReadable, text::kSourceNotRead, text::kTitleNothingToDo);
    refusal.text += " " + base::utf8::Printable(setup.SourceFolder) + " (" + source.error().text + ")";
    return refusal;
  }
  const bool files_in_source = Holds(**source, EntryKind::kFile);
  const bool SourceHasSubfolders = Holds(**source, EntryKind::kFolder);
  if (!files_in_source && !SourceHasSubfolders) {
    return Numbered(tools, kNoFilesInSource, text::kSourceIsEmpty, text::kTitleNothingToDo);
  }
  show_note("Now checking for file existence ...");
  const bool may_hold_files = SetupMayHoldFiles(tools, setup, files_in_source);
  show_note({});
  if (may_hold_files) return std::nullopt;
  return Numbered(tools, kNoFilesInSetup, text::kNoFilesInSetup, text::kTitleNothingToDo);
}

std::optional<Refusal> CheckTarget(const Tools& tools, const app::Setup& setup) {
  if (setup.TargetFolder.empty()) {
    Refusal refusal =
        Numbered(tools, kTargetNotSpecified, text::kTargetNotSpecified, text::kTitleNothingToDo);
    refusal.unattended = refusal.title = "Target folder not specified";
    return refusal;
  }
  const auto target = tools.files.Stat(setup.TargetFolder);
  if (!target && !IsGone(target.error())) {
    Refusal refusal = Numbered(tools, kTargetNotReadable, text::kTargetNotReadable, text::kTitleNothingToDo);
    refusal.text += " " + base::utf8::Printable(setup.TargetFolder) + " (" + target.error().text + ")";
    return refusal;
  }
  if (!target || !platform::IsFolder(target->kind)) {
    return Refusal{kTargetMissing,
                   "Target folder " + base::utf8::Printable(setup.TargetFolder) + " does not exist.",
                   kTargetMissingTitle, kTargetMissingTitle};
  }
  if (Overlap(tools.files, setup.SourceFolder, setup.TargetFolder).IsOneFolder()) {
    return Numbered(tools, kTargetIsSource, text::kSameFolder, text::kTitleSameFolder);
  }
  std::string reason;
  if (!tools.IsWriteProtected(setup.TargetFolder, reason)) return std::nullopt;
  Refusal refusal =
      Numbered(tools, kTargetWriteProtected, text::kTargetWriteProtected, text::kTitleNothingToDo);
  refusal.unattended = refusal.text;
  // A full disk cannot be written either.
  if (!reason.empty()) {
    refusal.text += "\r\n(" + reason + ")";
    refusal.unattended += " (" + reason + ")";
  }
  return refusal;
}

}  // namespace engine
