#pragma once

#include <string>

#include "platform/result.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// Gives the open file `from`, opened with the right to delete, the name `to` in the same volume in one
/// atomic step. A file at `to` goes, also a read-only one where the system can do that; afterwards `to` is
/// always a whole file. Closes the handle only where the system cannot rename through it. Both paths are in
/// the long form.
Status RenameOver(FileHandle& file, const std::wstring& from, const std::wstring& to);

}  // namespace platform::windows
