#include "engine/copy/hold.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

namespace engine {

TEST(Hold, LetsOthersRestUntilItEndsOnceItLastsLongerThanABreath) {
  std::atomic<int> milliseconds = 1'000;
  Hold hold([&] { return Hold::Clock::time_point(std::chrono::milliseconds{milliseconds}); });
  hold.Wait();
  hold.Begin();
  milliseconds += 29;
  hold.Wait();
  milliseconds += 1;
  std::atomic<int> arrived = 0;
  std::atomic<bool> ends = false;
  const auto rest = [&] {
    ++arrived;
    hold.Wait();
    return ends.load();
  };
  auto one = std::async(std::launch::async, rest);
  auto other = std::async(std::launch::async, rest);
  while (arrived < 2) std::this_thread::yield();
  for (int i = 0; i < 1'000; ++i) std::this_thread::yield();  // who does not rest is through by now
  ends = true;
  hold.End();
  EXPECT_TRUE(one.get() && other.get());
  hold.Wait();
}

}  // namespace engine
