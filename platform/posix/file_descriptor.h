#pragma once

#include <unistd.h>

#include "base/handle.h"

namespace platform::posix {

struct FileDescriptorTraits {
  using Value = int;
  static Value None() { return -1; }
  static void Close(Value value) { close(value); }
};

/// An open file or folder. What open() and its kin give back can be put in as it is: their -1 is "none".
using FileDescriptor = base::Handle<FileDescriptorTraits>;

}  // namespace platform::posix
