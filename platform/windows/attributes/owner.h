#pragma once

#include <string>

namespace platform::windows {

/// Whether what is at a path in the long form, a link for itself, belongs to the user who runs the
/// program, to the administrators or to the system. False when that is not known.
bool IsTrusted(const std::wstring& long_path);

}  // namespace platform::windows
