#pragma once

#include <cstdint>
#include <string>

#include "platform/file_system.h"
#include "platform/windows/temporary_file.h"

namespace platform::windows {

/// Copies a file by the system's own means under a temporary name in `target_folder` (long form, with a
/// separator at its end), with everything that belongs to it, and opens the copy for the last steps. `bytes`
/// becomes its length.
Result<TemporaryFile> CopyBySystem(const std::wstring& source_path, const std::wstring& target_folder,
                                   const CopyWatcher& watcher, std::int64_t& bytes);

}  // namespace platform::windows
