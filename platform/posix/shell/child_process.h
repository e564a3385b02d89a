#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/posix/file_descriptor.h"
#include "platform/result.h"

/// Programs of the system's that are started and left to themselves.
namespace platform::posix {

/// The file of the system's own command of that name: looked for where only the system's administrator puts
/// programs. Empty when there is none, or when the name has a "/" in it.
std::string FindSystemCommand(const std::string& name);

/// Starts the program at `path` with arguments[0] as the name it is told to have. Reads from `input` (none:
/// nothing to read) and writes nowhere. Its end is waited for in the background. Gives its process number.
Result<pid_t> StartProgram(const std::string& path, std::vector<std::string> arguments,
                           const FileDescriptor& input);

}  // namespace platform::posix
