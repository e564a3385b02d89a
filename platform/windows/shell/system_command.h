#pragma once

#include <string>

#include "platform/result.h"

namespace platform::windows {

/// Starts the system's own command of a bare name such as "shutdown", with the parameters as one text, and
/// does not wait for it. The program of that name in the system's own folder is run by its full path, never
/// one that is beside this program or in the current folder.
Status RunSystemCommand(const std::string& command, const std::string& parameters);

}  // namespace platform::windows
