#include "platform/grouped_copier.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <shared_mutex>
#include <utility>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

// A batch: enough for handing it over not to count, and no more than one thread should keep to itself.
constexpr std::size_t kBatchFiles = 50;
constexpr std::int64_t kBatchBytes = std::int64_t{4} << 20;

// How many groups may be waiting for the disk while another one is being filled. Of big files, which are a
// group each, some more: else the disk rests while the next are being written to memory, and takes 1.4 times
// as long.
constexpr std::size_t kGroupsToSave = 2;
constexpr std::size_t kSmallGroupsToSave = 4;
constexpr std::size_t kFewFiles = 8;

// Groups start at a quarter of their full size, double while the disk saves one within kQuick, and halve when
// it takes longer than kSlow: what is on its way is lost when the user cancels.
constexpr double kFirstScale = 0.25;
constexpr double kSmallestScale = 1.0 / 256;
constexpr std::chrono::milliseconds kQuick{500};
constexpr std::chrono::milliseconds kSlow{1500};

// A rename on a hanging server may take minutes.
constexpr std::chrono::milliseconds kLongestForNames{200};

struct Item {
  explicit Item(CopyOrder its_order) : order(std::move(its_order)) {}

  CopyOrder order;
  std::unique_ptr<Draft> draft = nullptr;
  Result<CopyOutcome> result = Error{};
  std::atomic<bool> has_its_name = false;
  bool is_settled = false;
};

using Batch = std::vector<Item*>;

std::int64_t SizeOf(const Item& item) { return std::max<std::int64_t>(item.order.file->size, 0); }

/// Files with numbers that are near each other mostly lie near each other.
std::uint64_t NumberOf(const Item* item) { return item->order.file->number; }

struct Group {
  std::deque<Batch> batches;  ///< grows while the first ones are being written: none moves
  std::size_t files = 0;
  std::size_t folders = 0;
  std::int64_t bytes = 0;
  Clock::time_point begun = Clock::now();
  std::size_t unwritten = 0;  ///< batches
};

using GroupPtr = std::shared_ptr<Group>;

/// Something that is done with the written files of a group, batch by batch: by every thread that has time,
/// and by the saver in any case.
struct Sharing {
  GroupPtr group;
  std::function<Status(Item&)> act;  ///< a failure is the file's
  std::atomic<std::size_t> next = 0;
  std::size_t done = 0;
};

Drafts WrittenDrafts(const Group& group) {
  Drafts drafts;
  for (const Batch& batch : group.batches) {
    for (const Item* item : batch) {
      if (item->result.ok()) drafts.push_back(item->draft.get());
    }
  }
  return drafts;
}

void FailAll(const Group& group, const Error& error) {
  for (const Batch& batch : group.batches) {
    for (Item* item : batch) {
      if (item->result.ok()) item->result = error;
    }
  }
}

}  // namespace

/// What the caller's thread and the jobs share. Only what is marked so is under the lock; an item belongs to
/// one thread at a time: the caller's, a writer's, the saver's, a writer's again, and the caller's.
struct GroupedCopier::State {
  State(std::shared_ptr<CopyVolume> its_volume, CopyThreads& its_threads)
      : volume(std::move(its_volume)), limits(volume->limits()), threads(its_threads) {}

  // --- Under the lock
  bool HasRoom() const;

  std::optional<Result<CopyOutcome>> CollectGivenUp();

  // --- Of the caller's thread
  bool IsFull() const;
  bool WouldGrowTooLarge(std::int64_t size) const;
  void Add(Item& item);
  void PostBatch();
  void CloseGroup();

  // --- Of the jobs
  void Prepare(Item& item);
  void WriteBatch(Group& group, Batch batch);
  void SaveGroup(const GroupPtr& group);
  Status SaveAndPublish(const GroupPtr& group);
  void ReadBackAll(const GroupPtr& group);
  void PublishAll(const GroupPtr& group);
  void DoWithAll(const GroupPtr& group, std::function<Status(Item&)> act);
  void DoWithSome(Sharing& sharing);
  CopyProgress WatcherOf(const Item& item, std::int64_t done_before);
  void Settle(const Group& group);
  void Adapt(Clock::duration took);

  const std::shared_ptr<CopyVolume> volume;
  const CopyLimits limits;
  CopyThreads& threads;
  std::weak_ptr<State> self;
  std::atomic<bool> given_up = false;
  std::atomic<double> scale = kFirstScale;
  std::atomic<bool> is_reading_back = false;

  std::deque<Item> items;  ///< of the caller; an item stays where it is until it is collected
  GroupPtr filling;        ///< of the caller
  bool batch_is_open = false;
  std::int64_t batch_bytes = 0;

  std::mutex big_file;       ///< held while one is written, where they are to be alone
  std::shared_mutex saving;  ///< held while a group is saved, where nothing is to be written meanwhile
  std::mutex mutex;
  std::condition_variable changed;
  std::size_t groups_to_save = 0;  ///< under the lock, as is Item::is_settled
  std::size_t files_to_save = 0;   ///< under the lock: those in these groups
  std::size_t unwritten = 0;       ///< under the lock: batches, as is Group::unwritten
  bool is_publishing = false;      ///< under the lock
  std::size_t given_out = 0;       ///< of the items, after it was given up
};

bool GroupedCopier::State::HasRoom() const {
  const std::size_t most = files_to_save <= kFewFiles ? kSmallGroupsToSave : kGroupsToSave;
  return groups_to_save < most;
}

bool GroupedCopier::State::IsFull() const {
  const double by = scale;
  return static_cast<double>(filling->files) >= std::max(1.0, static_cast<double>(limits.files) * by) ||
         static_cast<double>(filling->bytes) >= static_cast<double>(limits.bytes) * by ||
         filling->folders >= limits.folders || Clock::now() - filling->begun >= limits.age;
}

/// A big file makes up a group of its own, so that the small ones before it need not wait for it.
bool GroupedCopier::State::WouldGrowTooLarge(std::int64_t size) const {
  return filling && filling->bytes + size > limits.bytes;
}

void GroupedCopier::State::Add(Item& item) {
  const std::int64_t size = SizeOf(item);
  if (WouldGrowTooLarge(size)) CloseGroup();
  if (!filling) filling = std::make_shared<Group>();
  const bool same_folder = batch_is_open && filling->batches.back().back()->order.target == item.order.target;
  if (!same_folder) {
    PostBatch();
    ++filling->folders;
  }
  if (!batch_is_open) {
    filling->batches.emplace_back();
    batch_is_open = true;
    batch_bytes = 0;
  }
  filling->batches.back().push_back(&item);
  ++filling->files;
  filling->bytes += size;
  batch_bytes += size;
  if (filling->batches.back().size() >= kBatchFiles || batch_bytes >= kBatchBytes) PostBatch();
  if (IsFull()) CloseGroup();
}

void GroupedCopier::State::PostBatch() {
  if (!batch_is_open) return;
  batch_is_open = false;
  {
    const std::lock_guard lock(mutex);
    ++filling->unwritten;
    ++unwritten;
  }
  threads.writers.Post([state = self.lock(), group = filling, &batch = filling->batches.back()] {
    state->WriteBatch(*group, batch);
  });
}

void GroupedCopier::State::CloseGroup() {
  if (!filling) return;
  PostBatch();
  {
    const std::lock_guard lock(mutex);
    ++groups_to_save;
    files_to_save += filling->files;
  }
  threads.saver.Post([state = self.lock(), group = std::move(filling)] { state->SaveGroup(group); });
  filling = nullptr;
}

void GroupedCopier::State::Prepare(Item& item) {
  item.draft = volume->Prepare(item.order);
  item.draft->Prefetch();
}

/// By their numbers; names are given in the order of Start(), so that of two that are one name there, the
/// first gets it.
void GroupedCopier::State::WriteBatch(Group& group, Batch batch) {
  std::ranges::stable_sort(batch, {}, NumberOf);
  for (std::size_t at = 0, ahead = 0; at < batch.size(); ++at) {
    if (given_up) return;
    for (; ahead < std::min(at + limits.ahead, batch.size()); ++ahead) Prepare(*batch[ahead]);
    Item& item = *batch[at];
    std::unique_lock alone(big_file, std::defer_lock);
    if (limits.big_files_alone && SizeOf(item) >= kBatchBytes) alone.lock();
    std::shared_lock writing(saving, std::defer_lock);
    if (limits.saves_alone) writing.lock();
    item.result = item.draft->Write(WatcherOf(item, 0));
    item.order.source.reset();
  }
  const std::lock_guard lock(mutex);
  --unwritten;
  if (--group.unwritten == 0) changed.notify_all();
}

CopyProgress GroupedCopier::State::WatcherOf(const Item& item, std::int64_t done_before) {
  return [this, done_before, &asked = item.order.watcher](std::int64_t bytes) {
    return !given_up && (!asked || asked(done_before + bytes));
  };
}

void GroupedCopier::State::SaveGroup(const GroupPtr& group) {
  {
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return given_up || group->unwritten == 0; });
  }
  if (given_up) return;
  const Status saved = SaveAndPublish(group);
  {
    const std::lock_guard lock(mutex);
    if (given_up) return;
    if (!saved) FailAll(*group, saved.error());
  }
  Settle(*group);
}

Status GroupedCopier::State::SaveAndPublish(const GroupPtr& group) {
  const Drafts written = WrittenDrafts(*group);
  if (written.empty()) return Done{};
  std::unique_lock alone(saving, std::defer_lock);
  if (limits.saves_alone) alone.lock();
  const auto begun = Clock::now();
  if (Status saved = volume->SaveData(written); !saved) return saved;
  Adapt(Clock::now() - begun);
  ReadBackAll(group);
  PublishAll(group);
  const Drafts published = WrittenDrafts(*group);
  return published.empty() ? Status(Done{}) : volume->SaveNames(published);
}

void GroupedCopier::State::ReadBackAll(const GroupPtr& group) {
  const auto is_wished = [](const Item* item) { return item->order.read_back; };
  const auto has_some = [&](const Batch& batch) { return std::ranges::any_of(batch, is_wished); };
  if (std::ranges::none_of(group->batches, has_some)) return;
  is_reading_back = true;
  DoWithAll(group, [this](Item& item) {
    if (!item.order.read_back) return Status(Done{});
    return item.draft->ReadBack(WatcherOf(item, item.result->bytes));
  });
  is_reading_back = false;
}

void GroupedCopier::State::PublishAll(const GroupPtr& group) {
  {
    const std::lock_guard lock(mutex);
    is_publishing = true;
  }
  DoWithAll(group, [](Item& item) {
    Status published = item.draft->Publish();
    item.has_its_name = published.ok();
    return published;
  });
  const std::lock_guard lock(mutex);
  is_publishing = false;
  changed.notify_all();
}

void GroupedCopier::State::DoWithAll(const GroupPtr& group, std::function<Status(Item&)> act) {
  const auto sharing = std::make_shared<Sharing>();
  sharing->group = group;
  sharing->act = std::move(act);
  for (std::size_t helpers = std::min(limits.workers, group->batches.size()); helpers > 1; --helpers) {
    threads.writers.PostFirst([state = self.lock(), sharing] { state->DoWithSome(*sharing); });
  }
  DoWithSome(*sharing);
  std::unique_lock lock(mutex);
  changed.wait(lock, [&] { return sharing->done == group->batches.size(); });
}

void GroupedCopier::State::DoWithSome(Sharing& sharing) {
  const std::deque<Batch>& batches = sharing.group->batches;
  for (std::size_t at = sharing.next++; at < batches.size(); at = sharing.next++) {
    for (Item* item : batches[at]) {
      if (given_up || !item->result.ok()) continue;
      if (const Status done = sharing.act(*item); !done) item->result = done.error();
    }
    const std::lock_guard lock(mutex);
    if (++sharing.done == batches.size()) changed.notify_all();
  }
}

void GroupedCopier::State::Settle(const Group& group) {
  for (const Batch& batch : group.batches) {
    for (Item* item : batch) {
      item->draft.reset();
      item->order = {};
    }
  }
  const std::lock_guard lock(mutex);
  for (const Batch& batch : group.batches) {
    for (Item* item : batch) item->is_settled = true;
  }
  --groups_to_save;
  files_to_save -= group.files;
  changed.notify_all();
}

void GroupedCopier::State::Adapt(Clock::duration took) {
  if (took > kSlow) scale = std::max(scale / 2, kSmallestScale);
  if (took < kQuick) scale = std::min(scale * 2, 1.0);
}

GroupedCopier::GroupedCopier(std::shared_ptr<CopyVolume> volume, CopyThreads& threads)
    : threads_(threads), state_(std::make_shared<State>(std::move(volume), threads)) {
  state_->self = state_;
  threads_.writers.Allow(state_->limits.workers);
  threads_.saver.Allow(std::min<std::size_t>(state_->limits.workers, 1));
}

GroupedCopier::~GroupedCopier() {
  GiveUp();
  // Whoever holds the state last takes the temporary files away; that need not be this thread.
  if (!state_->items.empty()) threads_.writers.Post([state = state_] {});
}

bool GroupedCopier::HasRoom() {
  const std::lock_guard lock(state_->mutex);
  return state_->HasRoom();
}

void GroupedCopier::Start(CopyOrder order) { state_->Add(state_->items.emplace_back(std::move(order))); }

void GroupedCopier::Save() { state_->CloseGroup(); }

void GroupedCopier::GiveUp() {
  std::unique_lock lock(state_->mutex);
  state_->given_up = true;
  state_->changed.notify_all();
  state_->changed.wait_for(lock, kLongestForNames, [&] { return !state_->is_publishing; });
}

/// The items stay, since a job may still be at them.
std::optional<Result<CopyOutcome>> GroupedCopier::State::CollectGivenUp() {
  if (given_out == items.size()) return std::nullopt;
  const Item& item = items[given_out++];
  if (item.is_settled || item.has_its_name) return item.result;
  return Result<CopyOutcome>(Error{ErrorKind::kCancelled, 0, {}});
}

std::optional<Result<CopyOutcome>> GroupedCopier::Collect() {
  if (state_->filling && state_->IsFull()) state_->CloseGroup();
  const std::lock_guard lock(state_->mutex);
  if (state_->given_up) return state_->CollectGivenUp();
  if (state_->items.empty() || !state_->items.front().is_settled) return std::nullopt;
  Result<CopyOutcome> result = std::move(state_->items.front().result);
  state_->items.pop_front();
  return result;
}

CopyStage GroupedCopier::Wait(std::chrono::milliseconds longest) {
  State& state = *state_;
  if (state.items.empty()) return CopyStage::kIdle;
  if (state.filling) state.IsFull() ? state.CloseGroup() : state.PostBatch();
  std::unique_lock lock(state.mutex);
  const bool had_room = state.HasRoom();
  const auto is_ready = [&] { return state.items.front().is_settled || (!had_room && state.HasRoom()); };
  if (state.changed.wait_for(lock, longest, is_ready)) return CopyStage::kReady;
  if (state.unwritten > 0 || state.groups_to_save == 0) return CopyStage::kWriting;
  return state.is_reading_back ? CopyStage::kReadingBack : CopyStage::kSaving;
}

}  // namespace platform
