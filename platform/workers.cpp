#include "platform/workers.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace platform {

Workers::~Workers() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void Workers::Allow(std::size_t threads) {
  const std::lock_guard lock(mutex_);
  allowed_ = std::max(allowed_, threads);
}

void Workers::Post(Job job) { Add(std::move(job), false); }

void Workers::PostFirst(Job job) { Add(std::move(job), true); }

void Workers::Add(Job job, bool first) {
  std::unique_lock lock(mutex_);
  if (allowed_ == 0) {
    lock.unlock();
    job();
    return;
  }
  const auto place = jobs_.insert(first ? jobs_.begin() : jobs_.end(), std::move(job));
  const bool wants_one_more = waiting_ < jobs_.size() && threads_.size() < allowed_;
  if (wants_one_more && !StartThread() && threads_.empty()) {
    job = std::move(*place);
    jobs_.erase(place);
    lock.unlock();
    job();
    return;
  }
  lock.unlock();
  changed_.notify_one();
}

/// The system may have none to give: the user has too many, or too little memory.
bool Workers::StartThread() {
  try {
    threads_.emplace_back([this] { Run(); });
  } catch (const std::system_error&) {
    return false;
  }
  return true;
}

void Workers::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    ++waiting_;
    changed_.wait(lock, [this] { return ends_ || !jobs_.empty(); });
    --waiting_;
    if (ends_) return;
    const Job job = std::move(jobs_.front());
    jobs_.pop_front();
    lock.unlock();
    job();
    lock.lock();
  }
}

}  // namespace platform
