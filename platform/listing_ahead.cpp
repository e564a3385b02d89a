#include "platform/listing_ahead.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace platform {
namespace {

using SteadyClock = std::chrono::steady_clock;

// Other programs may change a folder between its listing and its use; that is to stay as short as if the
// folder were listed when it is wanted.
constexpr std::chrono::seconds kFresh{1};

// What handing a folder to another thread and back costs, about.
constexpr std::chrono::microseconds kHandOver{15};

// Listings that take longer wait for a disk or a network: many can wait at a time. From a disk most are quick
// all the same, since it reads what lies beside them at once; so an average tells. Where the caller is behind
// the listings, more threads for them would only take its time, and make all of them look slow.
constexpr std::chrono::microseconds kQuickListing{150};
constexpr int kAveraged = 16;
constexpr std::size_t kThreads = 8;
// The others take the processor's time; with that of the caller there are up to four.
constexpr std::size_t kMostQuickThreads = 3;

constexpr std::size_t kMostTasks = 512;
// Names listed and not taken yet: some 6 MiB.
constexpr std::size_t kMostNames = 40'000;

std::size_t QuickThreads() {
  static const std::size_t cores = std::thread::hardware_concurrency();
  return std::clamp<std::size_t>(cores, 2, kMostQuickThreads + 1) - 1;
}

}  // namespace

struct ListingAhead::Task {
  enum class State { kWaits, kRuns, kDone };

  Task(std::string its_path, FollowLinks its_links) : path(std::move(its_path)), links(its_links) {}
  std::size_t names() const { return listing ? (*listing)->entries().size() : 0; }

  const std::string path;
  const FollowLinks links;
  State state = State::kWaits;  ///< under the lock
  Listing listing = Error{};
  SteadyClock::time_point ended;
  SteadyClock::duration took{};
};

/// What the caller's thread and those in the background share.
struct ListingAhead::Queue {
  using Lock = std::unique_lock<std::mutex>;

  Queue(Lister its_lister, Now its_now) : lister(std::move(its_lister)), now(std::move(its_now)) {}

  /// Lists the first folder that waits; there is one.
  void RunNext(Lock& lock) {
    const std::shared_ptr<Task> task = std::move(waiting.front());
    waiting.pop_front();
    task->state = Task::State::kRuns;
    lock.unlock();
    Run(*task);
    lock.lock();
    names += task->names();
    task->state = Task::State::kDone;
    done.notify_all();
  }

  /// What a thread in the background does.
  void RunAll() {
    Lock lock(mutex);
    while (!waiting.empty() && threads <= allowed) RunNext(lock);
    --threads;
  }

  void Run(Task& task) const {
    const auto begun = now();
    task.listing = lister(task.path, task.links);
    task.ended = now();
    task.took = task.ended - begun;
  }

  const Lister lister;
  const Now now;
  std::mutex mutex;
  std::condition_variable done;
  std::deque<std::shared_ptr<Task>> waiting;
  std::size_t threads = 0;  ///< in the background, at work
  std::size_t allowed = QuickThreads();
  std::atomic<std::size_t> names = 0;
};

ListingAhead::ListingAhead(Lister lister, Now now)
    : queue_(std::make_shared<Queue>(std::move(lister), std::move(now))) {
  workers_.Allow(kThreads);
}

ListingAhead::~ListingAhead() {
  const std::lock_guard lock(queue_->mutex);
  queue_->waiting.clear();
}

bool ListingAhead::Begin(const std::string& path, FollowLinks links) {
  if (usually_takes_ < kHandOver || queue_->names > kMostNames) return false;
  if (tasks_.size() >= kMostTasks) DropStale();
  if (tasks_.size() >= kMostTasks) return false;
  const auto [place, is_new] = tasks_.try_emplace(path);
  if (!is_new) return true;
  place->second = std::make_shared<Task>(path, links);
  {
    const Queue::Lock lock(queue_->mutex);
    queue_->waiting.push_back(place->second);
    if (queue_->threads >= queue_->allowed) return true;
    ++queue_->threads;
  }
  workers_.Post([queue = queue_] { queue->RunAll(); });
  return true;
}

ListingAhead::Listing ListingAhead::Take(const std::string& path, FollowLinks links) {
  std::shared_ptr<Task> task;
  bool was_done = false;
  if (const auto found = tasks_.find(path); found != tasks_.end()) {
    task = std::move(found->second);
    tasks_.erase(found);
    was_done = Finish(task);
  }
  if (!task || task->links != links || !task->listing || queue_->now() - task->ended > kFresh) {
    task = std::make_shared<Task>(path, links);
    queue_->Run(*task);
  }
  Learn(task->took, was_done);
  return std::move(task->listing);
}

void ListingAhead::Learn(SteadyClock::duration took, bool was_done) {
  if (usually_takes_.count() == 0) usually_takes_ = took;
  usually_takes_ += (took - usually_takes_) / kAveraged;
  usually_waited_for_ +=
      ((was_done ? SteadyClock::duration::zero() : took) - usually_waited_for_) / kAveraged;
  is_slow_ = usually_takes_ >= kQuickListing && (is_slow_ || usually_waited_for_ >= kQuickListing);
}

bool ListingAhead::Finish(const std::shared_ptr<Task>& task) {
  Queue::Lock lock(queue_->mutex);
  queue_->allowed = is_slow_ ? kThreads : QuickThreads();
  const bool was_done = task->state == Task::State::kDone;
  if (task->state == Task::State::kWaits) {
    std::erase(queue_->waiting, task);
    lock.unlock();
    queue_->Run(*task);
    return false;
  }
  while (!is_slow_ && task->state != Task::State::kDone && !queue_->waiting.empty()) queue_->RunNext(lock);
  queue_->done.wait(lock, [&] { return task->state == Task::State::kDone; });
  queue_->names -= task->names();
  return was_done;
}

void ListingAhead::DropStale() {
  const auto now = queue_->now();
  const std::lock_guard lock(queue_->mutex);
  std::erase_if(tasks_, [&](const auto& entry) {
    const Task& task = *entry.second;
    if (task.state != Task::State::kDone || now - task.ended <= kFresh) return false;
    queue_->names -= task.names();
    return true;
  });
}

}  // namespace platform
