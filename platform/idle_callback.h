#pragma once

#include <functional>

#include "platform/result.h"
#include "platform/workers.h"

namespace platform {

/// Called about twenty times a second while a call that takes long is under way, from the thread of the call.
/// False: the caller does not want to wait any longer.
using IdleCallback = std::function<bool()>;

/// Does the work in the background and gives what it gives; kCancelled when `idle`, which may be empty, is
/// false before that. The work goes on then, so it must own what it works with.
Status WaitFor(Workers& workers, std::function<Status()> work, const IdleCallback& idle);

}  // namespace platform
