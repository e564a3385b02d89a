#include "platform/posix/worker.h"

#include <utility>

namespace platform::posix {

Worker::~Worker() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void Worker::Post(std::function<void()> job) {
  {
    const std::lock_guard lock(mutex_);
    jobs_.push_back(std::move(job));
  }
  changed_.notify_one();
  if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
}

void Worker::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return ends_ || !jobs_.empty(); });
    if (ends_) return;
    const std::function<void()> job = std::move(jobs_.front());
    jobs_.pop_front();
    lock.unlock();
    job();
    lock.lock();
  }
}

}  // namespace platform::posix
