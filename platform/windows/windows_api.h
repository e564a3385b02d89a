#pragma once

#include <windows.h>

// The Windows headers rename every later use of this word; it is a call of platform::FileSystem here. Whoever
// needs the system's own writes ReplaceFileW.
#undef ReplaceFile
