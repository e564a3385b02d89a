#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace platform {

/// Threads that do jobs in the background, in order. They are started when they are needed. When the object
/// goes, the jobs at hand are finished and the others are dropped. Where the system gives fewer threads,
/// those do; where it gives none, whoever posts a job does it, so no lock of the job may be held then.
class Workers {
 public:
  using Job = std::function<void()>;

  Workers() = default;
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;
  ~Workers();

  /// From now on up to so many jobs are done at a time. Never less than before. While it is 0, Post() does
  /// the job itself.
  void Allow(std::size_t threads);

  void Post(Job job);
  /// The same before all others that wait.
  void PostFirst(Job job);

 private:
  void Add(Job job, bool first);
  bool StartThread();  ///< under the lock
  void Run();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Job> jobs_;
  std::size_t allowed_ = 0;
  std::size_t waiting_ = 0;
  bool ends_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace platform
