#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// Gives the file `from`, open for writing and deleting, the name `to` in the same volume in one atomic step.
/// With TargetName::kFree kNameTaken when something has the name; else a file at `to` goes, also a
/// read-only one where the system can do that. Closes the handle only where the system cannot rename through
/// it. Both paths are in the long form.
Status Rename(FileHandle& file, const std::wstring& from, const std::wstring& to, TargetName listed);

}  // namespace platform::windows
