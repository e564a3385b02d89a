#pragma once

#include <memory>
#include <string>

#include "engine/tools.h"
#include "platform/file_lock.h"

namespace engine {

/// The file in the target folder that says who copies into it at present. It goes with the run; one that is
/// left by a dead program holds nobody up.
inline constexpr const char* kRunLock = ".quorvane-lock";

/// One run a target at a time: two would take each other's temporary files for those of an interrupted run,
/// and each other's copies for strangers.
struct RunLock {
  std::unique_ptr<platform::FileLock> lock;  ///< null where nothing can be locked, or when it is taken
  bool is_taken = false;
  std::string holder;  ///< whom it is taken by, as far as it is known
};

/// Locks a target for as long as the lock lives: on its own volume, where every computer sees it; where that
/// is not to be had, among the runs of this user on this computer.
RunLock LockTarget(const Tools& tools, const std::string& target);

}  // namespace engine
