#pragma once

#include <optional>
#include <string>

#include "ui/win32/win32.h"

namespace ui::win32 {

/// The shell's dialog for one existing folder of the file system; see ui::Dialogs::BrowseForFolder(). Needs
/// OLE. None: cancelled, or a place without a path.
std::optional<std::string> AskForFolder(HWND owner, const std::string& title, const std::string& start,
                                        bool new_style);

}  // namespace ui::win32
