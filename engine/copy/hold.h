#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <utility>

namespace engine {

/// Lets copies in the background rest while the run is held by a pause. The user holds it inside a call of
/// the listener; such a call that ends soon was none.
class Hold {
 public:
  using Clock = std::chrono::steady_clock;
  using Now = std::function<Clock::time_point()>;  ///< called from any thread, as long as somebody may wait

  explicit Hold(Now now = &Clock::now) : now_(std::move(now)) {}

  void Begin() {
    const std::lock_guard lock(mutex_);
    begun_ = now_();
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
    if (is_begun_ && now_() - begun_ >= kOneBreath) ended_.wait(lock, [this] { return !is_begun_; });
  }

 private:
  static constexpr std::chrono::milliseconds kOneBreath{30};

  const Now now_;
  std::mutex mutex_;
  std::condition_variable ended_;
  Clock::time_point begun_;
  bool is_begun_ = false;
};

}  // namespace engine
