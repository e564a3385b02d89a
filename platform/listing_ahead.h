#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "platform/folder.h"
#include "platform/result.h"
#include "platform/workers.h"

namespace platform {

/// Lists folders, and those that are wanted next already while the program still works on others. To be used
/// from one thread.
class ListingAhead {
 public:
  using Listing = Result<std::unique_ptr<Folder>>;
  /// Lists the folder at a path. Called from several threads at a time.
  using Lister = std::function<Listing(const std::string& path, FollowLinks links)>;

  /// What tells the time, of the steady clock, to all these threads.
  using Now = std::function<std::chrono::steady_clock::time_point()>;

  explicit ListingAhead(Lister lister, Now now = std::chrono::steady_clock::now);
  ~ListingAhead();

  /// Begins to list `path` in the background. False, and nothing, when listings are so quick that it would
  /// not pay, or many are there that nobody has taken.
  bool Begin(const std::string& path, FollowLinks links);

  /// The listing of `path`: the one begun, while it is fresh, or a new one. That a folder is missing is
  /// looked at anew in any case: the program may have made it meanwhile.
  Listing Take(const std::string& path, FollowLinks links);

 private:
  struct Task;
  struct Queue;

  void DropStale();
  /// Sees to it that `task` is done: by waiting for it, or here and now. Gives back whether it was already.
  bool Finish(const std::shared_ptr<Task>& task);
  void Learn(std::chrono::steady_clock::duration took, bool was_done);

  std::shared_ptr<Queue> queue_;
  std::unordered_map<std::string, std::shared_ptr<Task>> tasks_;
  std::chrono::steady_clock::duration usually_takes_{};  ///< a listing; 0: none yet
  std::chrono::steady_clock::duration
      usually_waited_for_{};  ///< 0 of those that were there when they were wanted
  bool is_slow_ = false;
  Workers workers_;
};

}  // namespace platform
