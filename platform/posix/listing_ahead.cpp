#include "platform/posix/listing_ahead.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace platform::posix {
namespace {

using SteadyClock = std::chrono::steady_clock;

// Other programs may change a folder between its listing and its use; that is to stay as short as if the
// folder were listed when it is wanted.
constexpr std::chrono::seconds kFresh{1};

// What handing a folder to another thread and back costs, about.
constexpr std::chrono::microseconds kHandOver{15};

// For volumes far away; where listing takes processor time, the system shares it out.
constexpr std::size_t kThreads = 8;

constexpr std::size_t kMostTasks = 64;
// Names listed and not taken yet: some 6 MiB.
constexpr std::size_t kMostNames = 40'000;

}  // namespace

struct ListingAhead::Shared {
  std::mutex mutex;
  std::condition_variable done;
  std::atomic<std::size_t> names = 0;
};

struct ListingAhead::Task {
  enum class State { kWaits, kRuns, kDone, kWithdrawn };

  explicit Task(std::string its_path) : path(std::move(its_path)) {}

  void Run() {
    const auto begun = SteadyClock::now();
    listing = PosixFolder::Open(path);
    ended = SteadyClock::now();
    took = ended - begun;
  }
  std::size_t names() const { return listing ? (*listing)->entries().size() : 0; }

  const std::string path;
  State state = State::kWaits;  ///< under the lock
  Listing listing = Error{};
  SteadyClock::time_point ended;
  SteadyClock::duration took{};
};

ListingAhead::ListingAhead() : shared_(std::make_shared<Shared>()) { workers_.Allow(kThreads); }

ListingAhead::~ListingAhead() = default;

void ListingAhead::Begin(const std::string& path) {
  if (last_took_ < kHandOver || shared_->names > kMostNames) return;
  if (tasks_.size() >= kMostTasks) DropStale();
  if (tasks_.size() >= kMostTasks) return;
  const auto [place, is_new] = tasks_.try_emplace(path);
  if (!is_new) return;
  const auto task = place->second = std::make_shared<Task>(path);
  workers_.Post([task, shared = shared_] {
    {
      const std::lock_guard lock(shared->mutex);
      if (task->state != Task::State::kWaits) return;
      task->state = Task::State::kRuns;
    }
    task->Run();
    const std::lock_guard lock(shared->mutex);
    shared->names += task->names();
    task->state = Task::State::kDone;
    shared->done.notify_all();
  });
}

ListingAhead::Listing ListingAhead::Take(const std::string& path) {
  std::shared_ptr<Task> task;
  if (const auto found = tasks_.find(path); found != tasks_.end()) {
    task = std::move(found->second);
    tasks_.erase(found);
    std::unique_lock lock(shared_->mutex);
    if (task->state == Task::State::kWaits) {
      task->state = Task::State::kWithdrawn;
    } else {
      shared_->done.wait(lock, [&] { return task->state == Task::State::kDone; });
      shared_->names -= task->names();
    }
  }
  const bool is_usable = task && task->state == Task::State::kDone && task->listing &&
                         SteadyClock::now() - task->ended <= kFresh;
  if (!is_usable) {
    task = std::make_shared<Task>(path);
    task->Run();
  }
  last_took_ = task->took;
  return std::move(task->listing);
}

void ListingAhead::DropStale() {
  const auto now = SteadyClock::now();
  const std::lock_guard lock(shared_->mutex);
  std::erase_if(tasks_, [&](const auto& entry) {
    const Task& task = *entry.second;
    if (task.state != Task::State::kDone || now - task.ended <= kFresh) return false;
    shared_->names -= task.names();
    return true;
  });
}

}  // namespace platform::posix
