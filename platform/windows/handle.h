#pragma once

#include "base/handle.h"
#include "platform/windows/windows_api.h"

namespace platform::windows {

// What the program holds open of Windows: each is closed when its owner goes, and may be handed on but not
// copied.

/// Of files, folders and volumes. None is what CreateFileW() gives when it fails, which is not null.
struct FileTraits {
  using Value = HANDLE;
  static Value None() { return INVALID_HANDLE_VALUE; }
  static void Close(Value value) { ::CloseHandle(value); }
};

/// Of a listing that FindFirstFileExW() began.
struct SearchTraits {
  using Value = HANDLE;
  static Value None() { return INVALID_HANDLE_VALUE; }
  static void Close(Value value) { ::FindClose(value); }
};

using FileHandle = base::Handle<FileTraits>;
using SearchHandle = base::Handle<SearchTraits>;
/// Of a key of the registry; null is none.
using KeyHandle = base::Handle<base::ClosedBy<HKEY, &::RegCloseKey>>;

}  // namespace platform::windows
