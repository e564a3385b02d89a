#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <future>
#include <thread>

#include "engine/copy/pulse.h"
#include "tests/engine/scene.h"

namespace engine {
namespace {

using test::Scene;

struct Breather : Scene {
  std::function<void()> in_a_breath;
  void Breathe() override { in_a_breath(); }
  void WriteLine(const std::string&) override { in_a_breath(); }
};

void ExpectRestIn(const std::function<void(Pulse&)>& call) {
  Breather scene;
  std::atomic<int> milliseconds = 1'000;
  Pulse pulse(scene.clock, scene,
              [&] { return Hold::Clock::time_point(std::chrono::milliseconds{milliseconds}); });
  Hold& hold = *pulse.hold();
  std::atomic<int> arrived = 0;
  std::atomic<bool> ends = false;
  const auto rest = [&] {
    ++arrived;
    hold.Wait();
    return ends.load();
  };
  std::future<bool> resting[2];
  scene.in_a_breath = [&] {
    milliseconds += 29;
    hold.Wait();
    milliseconds += 1;
    for (auto& one : resting) one = std::async(std::launch::async, rest);
    while (arrived < 2) std::this_thread::yield();
    for (int i = 0; i < 1'000; ++i) std::this_thread::yield();  // who does not rest is through by now
    ends = true;
  };
  hold.Wait();
  scene.clock.Advance(std::chrono::milliseconds{100});
  call(pulse);
  EXPECT_TRUE(resting[0].get() && resting[1].get());
  hold.Wait();
}

TEST(Pulse, LetsCopiesRestInACallThatLastsLongerThanABreath) {
  ExpectRestIn([](Pulse& pulse) { pulse.Beat(); });
  ExpectRestIn([](Pulse& pulse) { pulse.WriteLine("A line"); });
}

}  // namespace
}  // namespace engine
