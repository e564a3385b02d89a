#pragma once

#include "base/handle.h"
#include "platform/windows/windows_api.h"

namespace platform::windows {

struct FileTraits {
  using Value = HANDLE;
  static Value None() { return INVALID_HANDLE_VALUE; }
  static void Close(Value value) { ::CloseHandle(value); }
};

struct SearchTraits {
  using Value = HANDLE;
  static Value None() { return INVALID_HANDLE_VALUE; }
  static void Close(Value value) { ::FindClose(value); }
};

using FileHandle = base::Handle<FileTraits>;
using SearchHandle = base::Handle<SearchTraits>;
using KeyHandle = base::Handle<base::ClosedBy<HKEY, &::RegCloseKey>>;

}  // namespace platform::windows
