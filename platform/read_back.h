#pragma once

#include "platform/content_reader.h"
#include "platform/copier.h"
#include "platform/fingerprint.h"

namespace platform {

/// Reads a copy from its beginning to its end and holds it against what was written. kNotAsWritten when it is
/// something else or cannot be read. Asks the watcher, which may be empty, before the first byte (0) and
/// after each block, with the bytes read so far. The room for each read begins and ends at a multiple of
/// 4,096 bytes, as reads need it that pass the system's memory by.
Status ReadBack(ReadableFile& copy, const Fingerprint& written, const CopyProgress& watcher);

/// What it means that a copy cannot be opened to be read back.
Error NotAsWritten(const Error& why);

}  // namespace platform
