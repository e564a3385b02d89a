#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/windows/windows_api.h"

/// What the system's search says about files, turned into entries.
namespace platform::windows {

/// The three attribute bits of the program among all those of the system.
inline constexpr Attributes kKnownAttributes = kReadOnly | kHidden | kSystem;

/// Whether it is a link of any kind. Other reparse points are files and folders to everybody.
bool IsLink(const WIN32_FIND_DATAW& found);

/// "." and "..".
bool IsSelfOrParent(std::wstring_view name);

/// The entry that a search found. Links, and only they, are looked at once more through `folder`, the long
/// form of the folder with a separator at its end. Cloud placeholders and files that the system keeps
/// compactly are reparse points too, but ordinary files to everybody.
Entry EntryOf(const WIN32_FIND_DATAW& found, const std::wstring& folder);

/// Everything in a folder, whose long form ends in a separator. A link at the folder itself is followed.
Result<std::vector<Entry>> SearchFolder(const std::wstring& folder);

}  // namespace platform::windows
