#include "platform/listing_ahead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <utility>

namespace platform {

/// Each listing takes so long by a clock that the test drives.
struct ListingAheadTest : testing::Test {
  struct Listed : Folder {};

  ListingAhead::Listing List(const std::string& path, FollowLinks) {
    ++listings;
    time += takes;
    is_listed = true;
    if (path == "missing") return Error{ErrorKind::kNotFound, 2, {}};
    return std::unique_ptr<Folder>(std::make_unique<Listed>());
  }
  std::chrono::steady_clock::time_point Now() {
    const std::chrono::microseconds now{time};
    if (std::exchange(is_listed, false)) ++ended;
    return std::chrono::steady_clock::time_point(now);
  }
  void Wait(int for_listings) const {
    while (ended < for_listings) std::this_thread::yield();
  }
  /// How many listings there have been once this one is taken.
  int Take(const std::string& path, FollowLinks links = FollowLinks::kAll) {
    EXPECT_EQ(ahead.Take(path, links).ok(), path != "missing");
    return listings;
  }
  bool Begin(const std::string& path) { return ahead.Begin(path, FollowLinks::kAll); }

  std::atomic<int> listings = 0, ended = 0;
  inline static thread_local bool is_listed = false;
  std::atomic<std::int64_t> time = 0;  ///< microseconds
  int takes = 2'000;
  ListingAhead ahead{[this](auto& path, FollowLinks links) { return List(path, links); },
                     [this] { return Now(); }};
};

TEST_F(ListingAheadTest, IsTakenWhileItIsFreshAndWhenItWasBegunForTheSameLinks) {
  EXPECT_FALSE(Begin("a")) << "nothing is known to be slow yet";
  EXPECT_EQ(Take("a"), 1);
  EXPECT_TRUE(Begin("a") && Begin("a"));
  Wait(2);
  time += 999'000;
  EXPECT_EQ(Take("a"), 2);
  EXPECT_EQ(Take("a"), 3) << "taken once";
  EXPECT_TRUE(Begin("a") && Begin("b") && Begin("missing"));
  Wait(6);
  EXPECT_EQ(Take("b", FollowLinks::kTrusted), 7);
  EXPECT_EQ(Take("missing"), 8) << "it may have been made meanwhile";
  time += 1'001'000;
  EXPECT_EQ(Take("a"), 9) << "it may have changed meanwhile";
}

}  // namespace platform
