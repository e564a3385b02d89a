#pragma once

#include <string>

namespace platform::windows {

/// Whether what stands at a path in the long form, a link for itself, belongs to the user who runs the
/// program, to the administrators or to the system. False when that cannot be told.
bool IsTrusted(const std::wstring& long_path);

}  // namespace platform::windows
