#include "engine/folder_walk.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "engine/failure_text.h"
#include "engine/file_proc.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

using platform::Entry;
using platform::EntryKind;

/// How many of the folders that come next may be listed ahead.
constexpr std::size_t kPrefetched = 32;

/// How many files, subfolders and so on share a folder's part of the progress: at least one.
double UnitsOf(const FolderPair& pair) {
  return std::max(1.0, static_cast<double>(pair.source().entries().size()));
}

void Add(const FileCounts& folder, FileCounts& totals) {
  totals.met += folder.met;
  totals.new_files += folder.new_files;
  totals.modified_files += folder.modified_files;
  totals.up_to_date += folder.up_to_date;
  totals.filtered_out += folder.filtered_out;
  totals.failed += folder.failed;
  totals.due += folder.due;
  totals.compared += folder.compared;
  totals.differed += folder.differed;
}

bool IsFolderLink(platform::FileSystem& files, const std::string& path) {
  const auto entry = files.Stat(path);
  return entry && entry->kind == EntryKind::kFolderLink;
}

bool IsGone(const platform::Error& error) {
  return error.kind == platform::ErrorKind::kNotFound || error.kind == platform::ErrorKind::kNotAFolder;
}

}  // namespace

FolderWalk::FolderWalk(const Tools& tools, Listener& listener, WalkPlan plan)
    : tools_(tools),
      listener_(listener),
      plan_(std::move(plan)),
      overlap_(tools.files, plan_.source, plan_.target),
      target_root_(tools.files, plan_.target),
      pulse_(tools.clock, listener),
      unfinished_(tools.files, tools.clock, plan_.target),
      copy_pass_(tools, listener, pulse_, totals_, order_, unfinished_, plan_.source, target_root_),
      comparison_(tools, pulse_, plan_.source, plan_.target),
      file_pass_(tools, listener, pulse_, order_, copy_pass_, comparison_, target_root_,
                 {plan_.rules, plan_.compare_contents, [this] { return Ended(); }}) {
  if (!plan_.target.empty())
    target_ = std::make_shared<TargetFolder>(plan_.target, plan_.source, nullptr, true);
}

const Totals& FolderWalk::Run() {
  if (unfinished_.error())
    Warn(FailureLine(tools_, text::kMarkNotRead, unfinished_.path(), *unfinished_.error()));
  if (unfinished_.was_found()) Write(kLineIndent + tools_.texts.GetProgramText(text::kUnfinishedRunFound));
  PushRoots();
  while (!pending_.empty() && !Ended()) {
    PrefetchNext();
    const Pending folder = std::move(pending_.back());
    pending_.pop_back();
    BackupFolder(folder);
    if (!is_placed_) PlaceIncluded();
  }
  file_pass_.Finish();
  copy_pass_.Finish();
  if (!Ended()) listener_.Progress(1.0);
  return totals_;
}

void FolderWalk::EndUnfinished() {
  const bool all_seen =
      !cancelled_ && !OperationTerminated() && totals_.counts.failed == 0 && totals_.unread_folders == 0;
  if (IsCopyOperation(plan_.rules.operation)) unfinished_.End(all_seen);
}

void FolderWalk::PushRoots() {
  pending_ = IncludedFolders();
  const double share = 1 / (static_cast<double>(pending_.size()) + 1);
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    pending_[i].share_begin = static_cast<double>(i + 1) * share;
    pending_[i].share = share;
  }
  std::reverse(pending_.begin(), pending_.end());
  if (!plan_.exclude_files_in_source_folder) {
    pending_.push_back({plan_.source, target_, false, 0, share});
  } else {
    PlaceIncluded();
  }
}

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
    Warn(NoticeLine(tools_, text::kNotAPlainName, name));
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
    Warn(NoticeLine(tools_, is_link ? text::kLinkNotFollowed : text::kIncludedFolderGone, source));
    return std::nullopt;
  }
  // The setup may spell the name in another way than the disk.
  const auto real = tools_.files.RealPath(source);
  Pending folder = Below({plan_.source, target_}, real ? std::string(platform::NameOf(*real)) : name);
  folder.with_subfolders = plan_.include_subfolders;
  const bool target_is_link = folder.target && IsFolderLink(tools_.files, folder.target->path());
  if (!MayBeWalked(folder, target_is_link)) return std::nullopt;
  return folder;
}

/// Where the files of the source folder take no part, the listings are had for this alone.
void FolderWalk::PlaceIncluded() {
  is_placed_ = true;
  if (!target_ || pending_.empty()) return;
  auto root = FolderPair::Open(tools_.files, plan_.source, target_);
  if (!root || !ListTarget(*root)) return;
  const std::vector<Entry>& entries = root->source().entries();
  std::vector<Selection> selections(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].kind == EntryKind::kFolder) selections[i].target = root->TargetOf(entries[i]);
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

void FolderWalk::BackupFolder(const Pending& folder) {
  file_pass_.Beat(folder.share_begin);
  auto opened = FolderPair::Open(tools_.files, folder.source, folder.target);
  if (!opened) return FailFolder(folder.source, opened.error());
  const auto pair = std::make_shared<FolderPair>(std::move(*opened));
  if (!BelongsToSource(pair->source()) || !OpenTarget(folder, *pair) || !TargetIsItsOwn(folder, *pair))
    return;
  const std::vector<Selection> selections = SelectFiles(*pair);
  if (!is_placed_) PlaceIncluded(*pair, selections);
  const auto counts = CountsOf(*pair, selections);
  ReportBegin(counts);
  RemoveLeftovers(*pair);
  WarnAboutLinks(folder, *pair);
  ActOnFiles(folder, pair, selections, counts);
  ReportEnd(counts);
  if (Ended()) return;
  file_pass_.InTurn([this, counts] { PauseIfWished(*counts); });
  if (folder.with_subfolders) PushSubfolders(folder, *pair, selections);
}

std::shared_ptr<FolderCounts> FolderWalk::CountsOf(const FolderPair& pair,
                                                   const std::vector<Selection>& selections) {
  const std::vector<Entry>& entries = pair.source().entries();
  auto counts = std::make_shared<FolderCounts>();
  counts->path = pair.source().path();
  counts->files_in_folder = std::count_if(entries.begin(), entries.end(),
                                          [](const Entry& entry) { return entry.kind == EntryKind::kFile; });
  if (IsListOperation(plan_.rules.operation)) {
    counts->files_in_folder =
        std::count_if(selections.begin(), selections.end(),
                      [](const Selection& selection) { return selection.finding == Finding::kListed; });
  }
  counts->files_to_copy = std::count_if(selections.begin(), selections.end(),
                                        [](const Selection& selection) { return selection.selected; });
  return counts;
}

void FolderWalk::ReportBegin(const std::shared_ptr<FolderCounts>& counts) {
  Tell([this, counts] {
    ++totals_.folders;
    if (counts->files_in_folder > 0) ++totals_.non_empty_folders;
    listener_.FolderBegun(*counts);
  });
}

void FolderWalk::ReportEnd(const std::shared_ptr<FolderCounts>& counts) {
  const auto tell = [this, counts] {
    Add(counts->counts, totals_.counts);
    totals_.bytes_met += counts->bytes_met;
    totals_.bytes_compared += counts->bytes_compared;
    listener_.FolderEnded(*counts);
  };
  file_pass_.AtEndOfFolder([this, tell] { order_.ReportEndOfFolder(tell); });
}

/// What only the open folder tells: that it is the target, or another volume.
bool FolderWalk::BelongsToSource(const platform::Folder& folder) {
  if (overlap_.IsTarget(folder)) {
    Write(NoticeLine(tools_, text::kTargetInSource, folder.path()));
    return false;
  }
  if (folder.is_mount_point() && folder.path() != plan_.source) {
    if (!IsLeftOut(folder.path())) Warn(NoticeLine(tools_, text::kMountNotFollowed, folder.path()));
    return false;
  }
  return true;
}

void FolderWalk::PrefetchNext() {
  const std::size_t last = pending_.size();
  for (std::size_t i = last; i > 0 && last - i < kPrefetched; --i) {
    Pending& next = pending_[i - 1];
    if (next.is_prefetched) continue;
    if (!tools_.files.PrefetchFolder(next.source)) return;
    next.is_prefetched = true;
    if (next.target && next.target->is_there())
      tools_.files.PrefetchFolder(next.target->path(), next.target->links());
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

std::vector<Selection> FolderWalk::SelectFiles(FolderPair& pair) {
  const std::vector<Entry>& entries = pair.source().entries();
  std::vector<Selection> selections(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].kind == EntryKind::kFile)
      selections[i] = unfinished_.Select(plan_.rules, pair, entries[i]);
    if (entries[i].kind == EntryKind::kFolder) selections[i].target = pair.TargetOf(entries[i]);
  }
  return selections;
}

void FolderWalk::ActOnFiles(const Pending& folder, const std::shared_ptr<FolderPair>& pair,
                            const std::vector<Selection>& selections,
                            const std::shared_ptr<FolderCounts>& counts) {
  const double unit = folder.share / UnitsOf(*pair);
  double done = folder.share_begin;
  for (std::size_t i = 0; i < selections.size() && !Ended(); ++i) {
    const Entry& entry = pair->source().entries()[i];
    if (entry.kind != EntryKind::kFile) continue;
    file_pass_.Take({pair, &entry, selections[i], counts, done, unit});
    done += unit;
    file_pass_.Beat(done);
  }
}

bool FolderWalk::Ended() {
  if (cancelled_) return true;
  const bool terminated = OperationTerminated();
  if (!terminated && !listener_.StopRequested()) return false;
  cancelled_ = !terminated;
  file_pass_.GiveUp();
  if (cancelled_) copy_pass_.GiveUp();
  return true;
}

void FolderWalk::PauseIfWished(const FolderCounts& counts) {
  if (paused_ || counts.files_to_copy == 0 || !listener_.PauseWished()) return;
  copy_pass_.Finish();
  if (Ended() || counts.counts.copied == 0) return;
  paused_ = true;
  listener_.Pause();
}

void FolderWalk::PushSubfolders(const Pending& folder, const FolderPair& pair,
                                const std::vector<Selection>& selections) {
  const double unit = folder.share / UnitsOf(pair);
  double end = folder.share_begin + folder.share;
  const std::vector<Entry>& entries = pair.source().entries();
  for (std::size_t i = entries.size(); i-- > 0;) {
    if (entries[i].kind != EntryKind::kFolder) continue;
    const Entry* const target = selections[i].target;
    Pending below = Below(folder, entries[i].name);
    below.with_subfolders = true;
    below.share_begin = end - unit;
    below.share = unit;
    end -= unit;
    Place(below, pair, entries[i], target);
    if (MayBeWalked(below, target != nullptr && target->kind == EntryKind::kFolderLink))
      pending_.push_back(std::move(below));
  }
}

FolderWalk::Pending FolderWalk::Below(const Pending& folder, const std::string& name) const {
  Pending below{platform::JoinPath(folder.source, name), nullptr};
  if (folder.target)
    below.target = std::make_shared<TargetFolder>(platform::JoinPath(folder.target->path(), name),
                                                  below.source, folder.target, false);
  return below;
}

/// Notes what the listing of its parent's target says of a folder's target.
void FolderWalk::Place(Pending& folder, const FolderPair& parents, const Entry& source, const Entry* target) {
  if (!folder.target || target == nullptr || !IsFolder(target->kind)) return;
  folder.target->SetThere();
  if (IsCopyOperation(plan_.rules.operation))
    target_root_.TakeSpelling(parents.target_path(), *target, source.name);
}

/// The target inside the source is left out; so is a folder whose copies would land in the source.
bool FolderWalk::MayBeWalked(const Pending& folder, bool target_is_link) {
  if (overlap_.IsTarget(folder.source)) {
    Write(NoticeLine(tools_, text::kTargetInSource, folder.source));
    return false;
  }
  if (folder.target && overlap_.LandsInSource(folder.target->path(), target_is_link)) {
    Warn(NoticeLine(tools_, text::kWouldOverwriteSource, folder.source));
    return false;
  }
  return true;
}

void FolderWalk::Tell(ReportOrder::Act act) {
  file_pass_.InTurn([this, act = std::move(act)] { order_.Tell(act); });
}

void FolderWalk::Write(const std::string& line) {
  Tell([this, line] { listener_.WriteLine(line); });
}

void FolderWalk::Warn(const std::string& line) {
  Tell([this, line] {
    ++totals_.warnings;
    listener_.WriteLine(line);
  });
}

void FolderWalk::WriteUnread(const std::string& line) {
  Tell([this, line] {
    ++totals_.unread_folders;
    listener_.WriteLine(line);
  });
}

void FolderWalk::FailFolder(const std::string& path, const platform::Error& error) {
  WriteUnread(FailureLine(tools_, text::kNotRead, path, error));
}

}  // namespace engine
