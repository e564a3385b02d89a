#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace platform::posix {

/// One thread that does jobs in the background, in order. Started by the first job. When the worker goes, the
/// job at hand is finished and the others are dropped.
class Worker {
 public:
  Worker() = default;
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker();

  void Post(std::function<void()> job);

 private:
  void Run();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> jobs_;
  bool ends_ = false;
  std::thread thread_;
};

}  // namespace platform::posix
