#pragma once

#include <cstdint>
#include <string>

/// The system calls by which files get to the disk and get their names, as this test program makes them. They
/// are noted, and what a test wants of them can be set. The flushes themselves are left out: nobody cuts the
/// power of a test, and they take most of its time.
namespace platform::posix::test {

struct SystemCalls {
  std::string made;               ///< in their order: "syncfs fdatasync fsync rename " ...
  int error_of_syncfs = 0;        ///< what syncfs() is to fail with; 0: nothing
  unsigned long volume = 0;       ///< the magic number that fstatfs() is to tell; 0: the true one
  std::uint32_t fat_bits = 0x20;  ///< of the one file on a volume of FAT's number; changed by its own call
  int held_open = 0;              ///< files without a name that were still open at the last syncfs()
};

/// Those since it was reset; kept by all threads.
SystemCalls& Calls();

}  // namespace platform::posix::test
