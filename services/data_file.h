#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/shell.h"

namespace services {

/// The path of a file in the program's folder `folderName` below the current user's application data. The
/// folder is made where it is missing, but not its parents; whether that succeeds shows when the file is
/// written. When the system names no folder for application data, the path begins at the root.
std::string GetDataFilePath(platform::Shell& shell, platform::FileSystem& files, const std::string& fileName,
                            const std::string& folderName);

/// Removes what a program left in the folder that was killed while it replaced a file there: temporary files
/// that have not been written to for a minute.
void RemoveTemporaryFiles(platform::FileSystem& files, platform::Clock& clock, const std::string& folder);

}  // namespace services
