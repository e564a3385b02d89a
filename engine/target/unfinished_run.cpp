#include "engine/target/unfinished_run.h"

#include <algorithm>
#include <limits>
#include <sstream>

#include "engine/own_names.h"
#include "platform/path.h"

namespace engine {
namespace {

constexpr std::chrono::minutes kMovesEvery{5};
constexpr std::int64_t kLongestMark = 1 << 20;
constexpr platform::FileTime kNever{std::numeric_limits<std::int64_t>::max(), 0};

}  // namespace

UnfinishedRun::UnfinishedRun(platform::FileSystem& files, platform::Clock& clock, const std::string& target)
    : files_(files), clock_(clock) {
  if (target.empty()) return;
  path_ = platform::JoinPath(target, kUnfinishedMark);
  const auto set_at = files.ChangedAt(path_);
  if (!set_at) {
    if (set_at.error().kind != platform::ErrorKind::kNotFound) error_ = set_at.error();
    return;
  }
  const auto content = files.ReadFile(path_, kLongestMark);
  if (content) {
    ReadSpans(*content);
  } else {
    error_ = content.error();
  }
  doubted_.push_back({*set_at, kNever});
  last_is_open_ = true;
}

/// A line for each: when it begins and ends, by the target's clock, in seconds and nanoseconds.
void UnfinishedRun::ReadSpans(const std::string& content) {
  std::istringstream lines(content);
  for (Span span;
       lines >> span.begin.seconds >> span.begin.nanoseconds >> span.end.seconds >> span.end.nanoseconds;)
    doubted_.push_back(span);
}

std::string UnfinishedRun::Content() const {
  std::ostringstream lines;
  for (const auto& [begin, end] : doubted_)
    lines << begin.seconds << ' ' << begin.nanoseconds << ' ' << end.seconds << ' ' << end.nanoseconds
          << '\n';
  return lines.str();
}

bool UnfinishedRun::Doubts(const std::string& copy) const {
  const auto changed = files_.ChangedAt(copy);
  return !changed || std::any_of(doubted_.begin(), doubted_.end(), [&](const Span& span) {
    return span.begin <= *changed && *changed < span.end;
  });
}

Selection UnfinishedRun::Select(const SelectionRules& rules, FolderPair& pair,
                                const platform::Entry& file) const {
  const platform::Entry* const target = pair.TargetOf(file);
  Candidate candidate{pair.source().path(), file, target};
  candidate.is_doubted = target != nullptr && pair.IsNoCopy(file, *target);
  const Selection selection = SelectFile(rules, candidate);
  if (selection.finding != Finding::kUpToDate || !was_found()) return selection;
  candidate.is_doubted = Doubts(platform::JoinPath(pair.target_path(), candidate.target->name));
  return SelectFile(rules, candidate);
}

platform::Status UnfinishedRun::Begin() {
  if (has_begun_ || path_.empty()) return platform::Done{};
  has_begun_ = true;
  if (platform::Status written = Write(); !written) return written;
  return last_is_open_ ? CloseLastSpan() : platform::Status(platform::Done{});
}

/// What the run before left doubtful ends where this one begins: when the mark was written just now, as
/// exactly as the volume tells. By a clock that was put back meanwhile it has no end.
platform::Status UnfinishedRun::CloseLastSpan() {
  const auto set_at = files_.ChangedAt(path_);
  if (!set_at) return set_at.error();
  const platform::FileTime end =
      set_at->nanoseconds != 0 ? *set_at : platform::FileTime{set_at->seconds + 1, 0};
  if (end > doubted_.back().begin) doubted_.back().end = end;
  return Write();
}

void UnfinishedRun::LeaveAsItIs(const std::string& copy) {
  left_doubted_ = left_doubted_ || (was_found() && Doubts(copy));
}

bool UnfinishedRun::IsDueToMove() const { return has_begun_ && clock_.Monotonic() - written_ >= kMovesEvery; }

void UnfinishedRun::MoveOn() { static_cast<void>(Write()); }

platform::Status UnfinishedRun::Write() {
  written_ = clock_.Monotonic();
  // Whoever laid a link of that name, nothing is written to where it leads.
  if (const auto old = files_.Stat(path_); old && old->is_link) static_cast<void>(files_.RemoveFile(path_));
  return files_.ReplaceFile(path_, Content());
}

void UnfinishedRun::End(bool all_seen) {
  const bool is_there = has_begun_ || was_found();
  if (!is_there) return;
  // What cannot be written or taken away makes the next run copy more than it need.
  if ((all_seen && !left_doubted_) || !was_found()) {
    static_cast<void>(files_.RemoveFile(path_));
  } else if (has_begun_) {
    static_cast<void>(Write());
  }
}

}  // namespace engine
