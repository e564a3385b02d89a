#pragma once

#include <chrono>
#include <future>
#include <memory>
#include <string>

#include "platform/posix/posix_folder.h"
#include "platform/posix/worker.h"

namespace platform::posix {

/// Lists folders, and the one that is wanted next already while the program still works on another one.
class ListingAhead {
 public:
  using Listing = Result<std::unique_ptr<PosixFolder>>;

  /// Begins to list `path` in the background, unless listings are so quick that it would not pay. What was
  /// begun before and not taken is dropped.
  void Begin(const std::string& path);

  /// The listing of `path`: the one begun, while it is fresh, or a new one.
  Listing Take(const std::string& path);

 private:
  using Clock = std::chrono::steady_clock;

  struct Timed {
    Listing listing;
    Clock::time_point begun;
    Clock::duration took;
  };

  static Timed List(const std::string& path);

  std::string path_;
  std::future<Timed> next_;
  Clock::duration last_took_{};
  Worker worker_;
};

}  // namespace platform::posix
