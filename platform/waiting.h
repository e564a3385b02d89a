#pragma once

#include <functional>

#include "platform/result.h"

namespace platform {

/// Called about ten times a second while a call that takes long is under way, from the thread of the call.
using Waiting = std::function<void()>;

/// Does the work on a thread of its own and gives what it gives. `waiting` may be empty.
Status DoMeanwhile(const std::function<Status()>& work, const Waiting& waiting);

}  // namespace platform
