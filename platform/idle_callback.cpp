#include "platform/idle_callback.h"

#include <chrono>
#include <future>
#include <memory>
#include <utility>

namespace platform {

Status WaitFor(Workers& workers, std::function<Status()> work, const IdleCallback& idle) {
  const auto task = std::make_shared<std::packaged_task<Status()>>(std::move(work));
  std::future<Status> done = task->get_future();
  workers.Post([task] { (*task)(); });
  while (done.wait_for(std::chrono::milliseconds{50}) != std::future_status::ready) {
    if (idle && !idle()) return Error{ErrorKind::kCancelled, 0, {}};
  }
  return done.get();
}

}  // namespace platform
