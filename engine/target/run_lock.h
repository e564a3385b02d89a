#pragma once

#include <memory>
#include <optional>
#include <string>

#include "engine/tools.h"
#include "platform/file_lock.h"

namespace engine {

/// One run a target at a time: two would take each other's temporary files for those of an interrupted run,
/// and each other's copies for strangers.
struct RunLock {
  std::unique_ptr<platform::FileLock> lock;  ///< null where nothing can be locked, or when it is taken
  bool is_taken = false;
  std::string holder;  ///< whom it is taken by, as far as it is known
  std::string above;   ///< the folder above the target that is taken, if it is not the target itself
};

/// Locks a target for as long as the lock lives: on its own volume, where every computer sees it; where that
/// is not to be had, among the runs of this user on this computer. It counts as taken, too, while another run
/// copies into a folder above it, as far as that one's lock is on its volume: it may come by.
RunLock LockTarget(const Tools& tools, const std::string& target);

/// Who copies into a folder as into a target of its own; nothing when nobody does. What a dead program left
/// there is removed.
std::optional<std::string> HolderOf(const Tools& tools, const std::string& folder);

}  // namespace engine
