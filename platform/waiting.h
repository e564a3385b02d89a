#pragma once

#include <cstdint>
#include <functional>

#include "platform/result.h"

namespace platform {

/// Called about ten times a second while a call that takes long is under way, from the thread of the call.
using Waiting = std::function<void()>;

/// Asked between the blocks of a copy, before its first one, and while a call that takes long is under way.
/// bytes_written counts this file's bytes from 0. Returning false ends the copy with ErrorKind::kCancelled.
using CopyWatcher = std::function<bool(std::int64_t bytes_written)>;

/// Does the work on a thread of its own and gives what it gives. `waiting` may be empty.
Status DoMeanwhile(const std::function<Status()>& work, const Waiting& waiting);

/// The same as a part of a copy that has so many bytes. A watcher that wishes to stop is heard when the work
/// is done: kCancelled then.
Status DoMeanwhile(const std::function<Status()>& work, const CopyWatcher& watcher, std::int64_t bytes);

}  // namespace platform
