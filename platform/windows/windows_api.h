#pragma once

#include <windows.h>

// The Windows headers rename every later use of these words; they are calls of platform::FileSystem here.
// Whoever needs the system's own writes CopyFileExW and ReplaceFileW.
#undef CopyFile
#undef ReplaceFile
