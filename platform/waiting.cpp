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

}  // namespace platform
