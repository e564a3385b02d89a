#include "engine/walk/folder_walk.h"

#include <algorithm>
#include <utility>

#include "engine/failure_text.h"
#include "engine/selection/file_proc.h"
#include "engine/target/run_lock.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

using platform::Entry;
using platform::EntryKind;

/// How many of the folders that come next may be listed ahead.
constexpr std::size_t kPrefetched = 32;

/// The selection of a file may have to ask the target, which takes some milliseconds where that is far away.
constexpr std::size_t kFilesPerBeat = 16;

/// Into how many parts a folder's share of the progress is divided: its files come first, its subfolders
/// last.
std::size_t PartsOf(const FolderPair& pair) {
  return std::max<std::size_t>(1, pair.source().entries().size());
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

}  // namespace

FolderWalk::FolderWalk(const Tools& tools, Listener& listener, WalkPlan plan)
    : tools_(tools),
      listener_(listener),
      plan_(std::move(plan)),
      overlap_(tools.files, plan_.source, plan_.target),
      target_root_(tools.files, plan_.target),
      pulse_(tools.clock, listener),
      unfinished_(tools.files, tools.clock, plan_.target),
      copy_pass_(tools, listener, pulse_, totals_, order_, unfinished_, target_root_,
                 {plan_.source, plan_.read_back}),
      comparison_(tools, pulse_, plan_.source, plan_.target),
      file_pass_(tools, listener, pulse_, order_, copy_pass_, comparison_, target_root_,
                 {plan_.rules, plan_.compare_contents, [this] { return Ended(); }}) {
  if (!plan_.target.empty()) target_ = std::make_shared<TargetFolder>(plan_.target, plan_.source);
}

const Totals& FolderWalk::Run() {
  if (unfinished_.error()) {
    Warn(FailureLine(tools_, text::kMarkNotRead, unfinished_.path(), *unfinished_.error()));
  } else if (unfinished_.was_found()) {
    const bool goes_on = !IsCopyOperation(plan_.rules.operation) && HolderOf(tools_, plan_.target);
    const int what = goes_on ? text::kUnfinishedRunGoesOn : text::kUnfinishedRunFound;
    Write(kLineIndent + tools_.texts.GetProgramText(what));
  }
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
  if (!Ended()) pulse_.Complete();
  return totals_;
}

void FolderWalk::EndUnfinished(bool cancelled) {
  // Who cancels does not wait for the disk, as writing the mark would.
  if (cancelled && unfinished_.was_found()) return;
  unfinished_.End(!cancelled && !OperationTerminated() && totals_.unread_folders == 0);
}

void FolderWalk::PushRoots() {
  pending_ = IncludedFolders();
  const ProgressShare whole{0, 1};
  const std::size_t parts = pending_.size() + 1;  // the source's own files come first
  for (std::size_t i = 0; i < pending_.size(); ++i) pending_[i].share = whole.Part(i + 1, parts);
  std::reverse(pending_.begin(), pending_.end());
  if (!plan_.exclude_files_in_source_folder) {
    pending_.push_back({plan_.source, target_, false, whole.Part(0, parts)});
  } else {
    PlaceIncluded();
  }
}

void FolderWalk::BackupFolder(const Pending& folder) {
  file_pass_.Beat(folder.share.begin);
  auto opened = FolderPair::Open(tools_.files, folder.source, folder.target);
  if (!opened) return FailFolder(folder.source, opened.error());
  const auto pair = std::make_shared<FolderPair>(std::move(*opened));
  if (RefuseOutsideSource(pair->source()) || !OpenTarget(folder, *pair) || RefuseSharedTarget(folder, *pair))
    return;
  const std::vector<Selection> selections = SelectFiles(folder, *pair);
  if (Ended()) return;
  if (!is_placed_) PlaceIncluded(*pair, selections);
  const auto counts = CountsOf(*pair, selections);
  ReportBegin(counts);
  RemoveLeftovers(folder, *pair);
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
    pulse_.Held([&] { listener_.FolderBegun(*counts); });
  });
}

void FolderWalk::ReportEnd(const std::shared_ptr<FolderCounts>& counts) {
  const auto tell = [this, counts] {
    Add(counts->counts, totals_.counts);
    totals_.bytes_met += counts->bytes_met;
    totals_.bytes_compared += counts->bytes_compared;
    pulse_.Held([&] { listener_.FolderEnded(*counts); });
  };
  file_pass_.AtEndOfFolder([this, tell] { order_.ReportEndOfFolder(tell); });
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

std::vector<Selection> FolderWalk::SelectFiles(const Pending& folder, FolderPair& pair) {
  const std::vector<Entry>& entries = pair.source().entries();
  std::vector<Selection> selections(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i % kFilesPerBeat == 0) {
      file_pass_.Beat(folder.share.begin);
      if (listener_.StopRequested()) break;
    }
    if (entries[i].kind == EntryKind::kFile)
      selections[i] = unfinished_.Select(plan_.rules, pair, entries[i]);
    if (entries[i].kind == EntryKind::kFolder) selections[i].target = pair.TargetOf(entries[i]);
  }
  if (pair.has_target()) DoubtTwins(pair, selections);
  return selections;
}

void FolderWalk::ActOnFiles(const Pending& folder, const std::shared_ptr<FolderPair>& pair,
                            const std::vector<Selection>& selections,
                            const std::shared_ptr<FolderCounts>& counts) {
  std::size_t files = 0;
  for (std::size_t i = 0; i < selections.size() && !Ended(); ++i) {
    const Entry& entry = pair->source().entries()[i];
    if (entry.kind != EntryKind::kFile) continue;
    const ProgressShare share = folder.share.Part(files++, PartsOf(*pair));
    file_pass_.Take({pair, &entry, selections[i], counts, share.begin, share.size});
    file_pass_.Beat(share.begin + share.size);
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
  pulse_.TellReached();
  listener_.Pause();
}

void FolderWalk::PushSubfolders(const Pending& folder, const FolderPair& pair,
                                const std::vector<Selection>& selections) {
  std::size_t parts = PartsOf(pair);
  const std::vector<Entry>& entries = pair.source().entries();
  for (std::size_t i = entries.size(); i-- > 0;) {
    if (entries[i].kind != EntryKind::kFolder) continue;
    const Entry* const target = selections[i].target;
    Pending below = Below(folder, entries[i].name, true);
    below.share = folder.share.Part(--parts, PartsOf(pair));
    Place(below, pair, entries[i], target);
    if (!RefuseOverlap(below, target != nullptr && target->kind == EntryKind::kFolderLink))
      pending_.push_back(std::move(below));
  }
}

FolderWalk::Pending FolderWalk::Below(const Pending& folder, const std::string& name,
                                      bool with_subfolders) const {
  Pending below{platform::JoinPath(folder.source, name), nullptr, with_subfolders};
  if (folder.target) below.target = TargetFolder::Below(folder.target, name);
  return below;
}

void FolderWalk::Tell(ReportOrder::Act act) {
  file_pass_.InTurn([this, act = std::move(act)] { order_.Tell(act); });
}

void FolderWalk::Write(const std::string& line) {
  Tell([this, line] { pulse_.WriteLine(line); });
}

void FolderWalk::Warn(const std::string& line) {
  Tell([this, line] {
    ++totals_.warnings;
    pulse_.WriteLine(line);
  });
}

void FolderWalk::WarnLeftOut(const std::string& line) {
  Tell([this] { ++totals_.left_out_folders; });
  Warn(line);
}

void FolderWalk::WriteUnread(const std::string& line) {
  Tell([this, line] {
    ++totals_.unread_folders;
    pulse_.WriteLine(line);
  });
}

void FolderWalk::FailFolder(const std::string& path, const platform::Error& error) {
  WriteUnread(FolderFailureLine(tools_, path, error));
}

}  // namespace engine
