#include "platform/pair_comparer.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <mutex>
#include <utility>
#include <vector>

namespace platform {
namespace {

// What is on its way: enough for the threads never to wait, and few enough folders for their handles.
constexpr std::size_t kMostPairs = 1024;
constexpr std::size_t kMostFolders = 32;
constexpr std::int64_t kMostBytes = std::int64_t{64} << 20;

// A batch: enough for handing it over not to count.
constexpr std::size_t kPairsOfBatch = 64;
constexpr std::int64_t kBytesOfBatch = std::int64_t{1} << 20;

// Of a big file each side is read in blocks large enough for a disk that goes to and fro between two files.
constexpr std::int64_t kBigFile = std::int64_t{8} << 20;
constexpr std::int64_t kBlock = std::int64_t{256} << 10;
constexpr std::int64_t kBigBlock = std::int64_t{1} << 20;

// How many pairs of a batch are open at a time. Where a pair takes longer than what is quick, the disk is
// asked for all of these at once and reads them in two thirds of the time; files in memory need no asking.
constexpr std::size_t kPairsOpen = 8;
constexpr std::chrono::microseconds kQuickPair{100};

using Opened = Result<std::unique_ptr<ReadableFile>>;

struct Pair {
  explicit Pair(CompareOrder its_order) : order(std::move(its_order)) {}

  CompareOrder order;
  Opened file = Error{};
  Opened copy = Error{};
  CompareOutcome outcome = {};
  std::atomic<bool> is_done = false;
};

using Pairs = std::vector<Pair*>;

std::int64_t SizeOf(const CompareOrder& order) { return std::max<std::int64_t>(order.file->size, 0); }

/// Room for the blocks of both sides; one for each thread at work. Not the thread's own: mingw-w64 frees what
/// is before it is destroyed.
struct Blocks {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;

  std::span<char> Side(std::size_t side, std::size_t wanted) {
    if (size < wanted) {
      bytes = std::make_unique_for_overwrite<char[]>(2 * wanted);
      size = wanted;
    }
    return {bytes.get() + side * size, wanted};
  }
};

/// Fills the room as far as the file goes. Where a read that finds less ends after `expected` bytes, as
/// listed, that is the end.
Result<std::size_t> Fill(ReadableFile& file, std::span<char> room, std::int64_t expected) {
  std::size_t filled = 0;
  while (filled < room.size()) {
    const auto got = file.Read(room.subspan(filled));
    if (!got) return got.error();
    filled += *got;
    if (*got == 0 || static_cast<std::int64_t>(filled) == expected) break;
  }
  return filled;
}

}  // namespace

struct PairComparer::State {
  State(ContentOpener its_opener, std::size_t threads_if_quick)
      : opener(std::move(its_opener)), quick_threads(threads_if_quick) {}

  /// What a thread in the background does: batch after batch, while so many threads are of use.
  void CompareAll();
  bool HasTooManyThreads() const { return !is_slow && threads > quick_threads; }
  void Compare(const Pairs& batch, Blocks& blocks);
  void Open(Pair& pair);
  static void Close(Pair& pair);
  CompareOutcome Compare(const Pair& pair, Blocks& blocks);
  CompareOutcome CompareOpen(const CompareOrder& order, ReadableFile& file, ReadableFile& copy,
                             Blocks& blocks);

  const ContentOpener opener;
  const std::size_t quick_threads;
  std::atomic<bool> given_up = false;
  std::atomic<bool> is_slow = true;  ///< the latest batch was

  // --- Of the caller's thread
  std::deque<Pair> pairs;  ///< a pair stays where it is until it is collected
  Pairs batch;
  std::int64_t batch_bytes = 0;
  std::int64_t bytes = 0;
  std::deque<std::pair<const Folder*, std::size_t>> folders;  ///< of the pairs, with how many are in each

  std::mutex mutex;
  std::deque<Pairs> batches;  ///< that no thread has begun
  std::size_t threads = 0;    ///< at work
  std::condition_variable changed;
  std::mutex one_big_file;
};

void PairComparer::State::CompareAll() {
  Blocks blocks;
  std::unique_lock lock(mutex);
  while (!batches.empty() && !HasTooManyThreads()) {
    const Pairs next = std::move(batches.front());
    batches.pop_front();
    lock.unlock();
    Compare(next, blocks);
    lock.lock();
    changed.notify_all();
  }
  --threads;
}

void PairComparer::State::Compare(const Pairs& its_batch, Blocks& blocks) {
  const auto begun = std::chrono::steady_clock::now();
  for (std::size_t at = 0, open = 0; at < its_batch.size(); ++at) {
    if (given_up) return;
    for (; open < std::min(at + kPairsOpen, its_batch.size()); ++open) Open(*its_batch[open]);
    Pair& pair = *its_batch[at];
    pair.outcome = Compare(pair, blocks);
    Close(pair);
    pair.is_done = true;
  }
  is_slow = std::chrono::steady_clock::now() - begun > kQuickPair * its_batch.size();
}

void PairComparer::State::Open(Pair& pair) {
  pair.file = opener(*pair.order.source, *pair.order.file);
  pair.copy = opener(*pair.order.target, *pair.order.copy);
  if (!is_slow) return;
  if (pair.file) (*pair.file)->Prefetch();
  if (pair.copy) (*pair.copy)->Prefetch();
}

void PairComparer::State::Close(Pair& pair) {
  pair.file = Error{};
  pair.copy = Error{};
}

CompareOutcome PairComparer::State::Compare(const Pair& pair, Blocks& blocks) {
  const CompareOrder& order = pair.order;
  if (order.watcher) order.watcher(0);
  if (!pair.file) return {Comparison::kSourceUnread, pair.file.error()};
  if (!pair.copy) return {Comparison::kCopyUnread, pair.copy.error()};
  std::unique_lock big(one_big_file, std::defer_lock);
  if (SizeOf(order) >= kBigFile) big.lock();
  CompareOutcome outcome = CompareOpen(order, **pair.file, **pair.copy, blocks);
  if (outcome.finding == Comparison::kDifferent && !(*pair.file)->IsAsListed(*order.file))
    outcome.finding = Comparison::kChanged;
  return outcome;
}

/// Each side is read one byte further than its listing says, so that an end is told in the same read.
CompareOutcome PairComparer::State::CompareOpen(const CompareOrder& order, ReadableFile& file,
                                                ReadableFile& copy, Blocks& blocks) {
  const std::int64_t most = SizeOf(order) >= kBigFile ? kBigBlock : kBlock;
  const auto wanted = static_cast<std::size_t>(std::min(SizeOf(order) + 1, most));
  const std::span<char> ours = blocks.Side(0, wanted);
  const std::span<char> theirs = blocks.Side(1, wanted);
  for (std::int64_t compared = 0; !given_up;) {
    const auto source_bytes = Fill(file, ours, SizeOf(order) - compared);
    if (!source_bytes) return {Comparison::kSourceUnread, source_bytes.error()};
    const auto copy_bytes = Fill(copy, theirs, SizeOf(order) - compared);
    if (!copy_bytes) return {Comparison::kCopyUnread, copy_bytes.error()};
    if (*source_bytes != *copy_bytes || std::memcmp(ours.data(), theirs.data(), *copy_bytes) != 0)
      return {Comparison::kDifferent};
    if (*source_bytes < wanted) break;
    compared += static_cast<std::int64_t>(*source_bytes);
    if (order.watcher) order.watcher(compared);
  }
  return {};
}

PairComparer::PairComparer(ContentOpener opener, Workers& threads, std::size_t quick_threads)
    : threads_(threads), state_(std::make_shared<State>(std::move(opener), quick_threads)) {}

PairComparer::~PairComparer() { state_->given_up = true; }

bool PairComparer::HasRoom() {
  return state_->pairs.size() < kMostPairs && state_->folders.size() < kMostFolders &&
         state_->bytes < kMostBytes;
}

void PairComparer::Start(CompareOrder order) {
  State& state = *state_;
  const Folder* const folder = order.source.get();
  if (state.folders.empty() || state.folders.back().first != folder) state.folders.emplace_back(folder, 0);
  ++state.folders.back().second;
  const std::int64_t size = SizeOf(order);
  state.bytes += size;
  state.batch_bytes += size;
  state.batch.push_back(&state.pairs.emplace_back(std::move(order)));
  if (state.batch.size() >= kPairsOfBatch || state.batch_bytes >= kBytesOfBatch) Post();
}

void PairComparer::Post() {
  if (state_->batch.empty()) return;
  state_->batch_bytes = 0;
  {
    const std::lock_guard lock(state_->mutex);
    state_->batches.push_back(std::exchange(state_->batch, {}));
    ++state_->threads;
    if (state_->HasTooManyThreads()) {
      --state_->threads;
      return;
    }
  }
  threads_.Post([state = state_] { state->CompareAll(); });
}

std::optional<CompareOutcome> PairComparer::Collect() {
  State& state = *state_;
  if (state.pairs.empty() || !state.pairs.front().is_done) return std::nullopt;
  CompareOutcome outcome = std::move(state.pairs.front().outcome);
  state.bytes -= SizeOf(state.pairs.front().order);
  if (--state.folders.front().second == 0) state.folders.pop_front();
  state.pairs.pop_front();
  return outcome;
}

void PairComparer::Wait(std::chrono::milliseconds longest) {
  if (state_->pairs.empty()) return;
  Post();
  std::unique_lock lock(state_->mutex);
  const Pair& last = state_->pairs[std::min(state_->pairs.size(), kMostPairs / 4) - 1];
  state_->changed.wait_for(lock, longest, [&] { return state_->pairs.front().is_done && last.is_done; });
}

}  // namespace platform
