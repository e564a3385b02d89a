#pragma once

#include <string>

namespace engine {

/// The file in the target folder that says: a run into it has begun and not ended.
inline constexpr const char* kUnfinishedMark = ".quorvane-unfinished";

/// The file in the target folder that says who copies into it at present. It goes with the run; one that is
/// left by a dead program holds nobody up.
inline constexpr const char* kRunLock = ".quorvane-lock";

/// Whether a name in a target is not a copy's but the program's own: the mark, the lock, or a temporary
/// name.
bool IsTheProgramsOwn(const std::string& name);

}  // namespace engine
