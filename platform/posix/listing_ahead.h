#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "platform/posix/posix_folder.h"
#include "platform/workers.h"

namespace platform::posix {

/// Lists folders, and those that are wanted next already while the program still works on others. To be used
/// from one thread.
class ListingAhead {
 public:
  using Listing = Result<std::unique_ptr<PosixFolder>>;

  ListingAhead();
  ~ListingAhead();

  /// Begins to list `path` in the background, unless listings are so quick that it would not pay, or many are
  /// there that nobody has taken.
  void Begin(const std::string& path);

  /// The listing of `path`: the one begun, while it is fresh, or a new one. That a folder is missing is
  /// looked at anew in any case: the program may have made it meanwhile.
  Listing Take(const std::string& path);

 private:
  struct Task;
  struct Shared;

  void DropStale();

  std::shared_ptr<Shared> shared_;
  std::unordered_map<std::string, std::shared_ptr<Task>> tasks_;
  std::chrono::steady_clock::duration last_took_{};
  Workers workers_;
};

}  // namespace platform::posix
