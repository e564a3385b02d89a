#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace engine {

/// Lets copies in the background rest while the run is held by a pause. The user holds it inside a call of
/// the listener; such a call that ends soon was none.
class Hold {
 public:
  void Begin() {
    const std::lock_guard lock(mutex_);
    begun_ = Clock::now();
    is_begun_ = true;
  }

  void End() {
    {
      const std::lock_guard lock(mutex_);
      is_begun_ = false;
    }
    ended_.notify_all();
  }

  /// From any thread: returns when the run is not held.
  void Wait() {
    std::unique_lock lock(mutex_);
    if (is_begun_ && Clock::now() - begun_ >= kOneBreath) ended_.wait(lock, [this] { return !is_begun_; });
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kOneBreath{30};

  std::mutex mutex_;
  std::condition_variable ended_;
  Clock::time_point begun_;
  bool is_begun_ = false;
};

}  // namespace engine
