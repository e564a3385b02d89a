#pragma once

#include <string>

#include "platform/windows/copy/progress.h"
#include "platform/windows/copy/temporary_file.h"

namespace platform::windows {

/// Whether CopyBySystem() says how far it is, and can be stopped meanwhile. Wine's (seen with version 8) can
/// do neither.
bool SystemCopyTellsProgress();

/// Copies a file by the system's own means under a temporary name in `target_folder` (long form, with a
/// separator at its end), with everything that belongs to it, and opens the copy for the last steps. A file
/// that shrank or grew meanwhile has a copy of some length between.
Result<TemporaryFile> CopyBySystem(const std::wstring& source_path, const std::wstring& target_folder,
                                   Progress& progress);

}  // namespace platform::windows
