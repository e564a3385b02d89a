#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// Gives the file `from`, open for writing and deleting, the name `to` in the same volume in one atomic step.
/// With TargetName::kFree kNameTaken when something bears the name. Else a file at `to` goes, also a
/// read-only one where the system can do that; before it goes, the new one is flushed to the disk, so that a
/// power cut, too, leaves one of the two whole. Closes the handle only where the system cannot rename through
/// it. Both paths are in the long form.
Status RenameOver(FileHandle& file, const std::wstring& from, const std::wstring& to, TargetName listed);

}  // namespace platform::windows
