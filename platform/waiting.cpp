#include "platform/waiting.h"

#include <chrono>
#include <future>

namespace platform {

Status DoMeanwhile(const std::function<Status()>& work, const Waiting& waiting) {
  std::future<Status> done = std::async(std::launch::async, work);
  while (done.wait_for(std::chrono::milliseconds{100}) != std::future_status::ready) {
    if (waiting) waiting();
  }
  return done.get();
}

Status DoMeanwhile(const std::function<Status()>& work, const CopyWatcher& watcher, std::int64_t bytes) {
  bool goes_on = true;
  const Status done = DoMeanwhile(work, [&] { goes_on = goes_on && (!watcher || watcher(bytes)); });
  if (done && !goes_on) return Error{ErrorKind::kCancelled, 0, {}};
  return done;
}

}  // namespace platform
