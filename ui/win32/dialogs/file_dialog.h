#pragma once

#include <optional>
#include <string>

#include "ui/dialogs.h"
#include "ui/win32/win32.h"

namespace ui::win32 {

/// The system's dialogs for one file; see ui::Dialogs. None: cancelled.
std::optional<std::string> AskForFileToOpen(HWND owner, const FileDialog& dialog);
std::optional<std::string> AskForFileToSave(HWND owner, const FileDialog& dialog);

}  // namespace ui::win32
