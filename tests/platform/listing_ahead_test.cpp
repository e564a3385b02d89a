#include "platform/listing_ahead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <utility>

namespace platform {

/// Each listing takes two milliseconds by a clock that the test drives.
struct ListingAheadTest : testing::Test {
  struct Listed : Folder {};

  Result<std::unique_ptr<Folder>> List(const std::string& path) {
    time += 2'000;
    is_listed = true;
    if (path == "missing") return Error{ErrorKind::kNotFound, 2, {}};
    return std::unique_ptr<Folder>(std::make_unique<Listed>());
  }
  std::chrono::steady_clock::time_point Now() {
    const std::chrono::microseconds now{time};
    if (std::exchange(is_listed, false)) ++listings;
    return std::chrono::steady_clock::time_point(now);
  }
  /// How many listings there have been once this one is taken.
  int Take(const std::string& path, FollowLinks links = FollowLinks::kAll) {
    EXPECT_EQ(ahead.Take(path, links).ok(), path != "missing");
    return listings;
  }
  bool Begin(const std::string& path) { return ahead.Begin(path, FollowLinks::kAll); }

  std::atomic<int> listings = 0;
  inline static thread_local bool is_listed = false;
  std::atomic<std::int64_t> time = 0;  ///< microseconds
  ListingAhead ahead{[this](auto& path, FollowLinks) { return List(path); }, [this] { return Now(); }};
};

TEST_F(ListingAheadTest, IsTakenWhileItIsFreshAndWhenItWasBegunForTheSameLinks) {
  EXPECT_FALSE(Begin("a")) << "nothing is known to be slow yet";
  EXPECT_EQ(Take("a"), 1);
  EXPECT_TRUE(Begin("a") && Begin("a"));
  while (listings < 2) std::this_thread::yield();
  time += 999'000;
  EXPECT_EQ(Take("a"), 2);
  EXPECT_EQ(Take("a"), 3) << "taken once";
  EXPECT_TRUE(Begin("a") && Begin("b") && Begin("missing"));
  while (listings < 6) std::this_thread::yield();
  EXPECT_EQ(Take("b", FollowLinks::kTrusted), 7);
  EXPECT_EQ(Take("missing"), 8) << "it may have been made meanwhile";
  time += 1'001'000;
  EXPECT_EQ(Take("a"), 9) << "it may have changed meanwhile";
}

}  // namespace platform
