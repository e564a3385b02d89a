#pragma once

#include <cstdint>

#include "platform/fingerprint.h"
#include "platform/result.h"
#include "platform/windows/copy/progress.h"
#include "platform/windows/copy/source_file.h"
#include "platform/windows/copy/temporary_file.h"

namespace platform::windows {

/// Moves what is left of an open file after its first `moved` bytes, with which `copy` begins, and leaves in
/// source.state() what the source is at the end; it may grow meanwhile. kShort when it became shorter or
/// ended too early. Adds what it moves to the fingerprint, which may be null.
Status MoveData(SourceFile& source, TemporaryFile& copy, Progress& progress, std::int64_t& moved,
                FingerprintTaker* fingerprint);

}  // namespace platform::windows
