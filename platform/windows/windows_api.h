#pragma once

#include <windows.h>

// The Windows headers rename every later use of this word; it is a call of platform::FileSystem here. Whoever
// needs the system's own writes ReplaceFileW.
#undef ReplaceFile

namespace platform::windows {

/// Letters of any path that the system takes or gives, with a zero at its end.
inline constexpr DWORD kLongestPath = 32'768;

}  // namespace platform::windows
