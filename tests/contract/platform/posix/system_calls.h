#pragma once

#include <time.h>

#include <cstdint>
#include <map>
#include <string>

#include "tests/contract/platform/locked.h"

/// The system calls by which files get to the disk and get their names, as this test program makes them. They
/// are noted, and what a test wants of them can be set. The flushes themselves are left out: nobody cuts the
/// power of a test, and they take most of its time.
namespace platform::posix::test {

struct SystemCalls {
  std::string made = {};                  ///< in their order: "syncfs fdatasync fsync rename " ...
  std::map<std::string, int> fails = {};  ///< calls by name, and the number each is to fail with
  bool is_slow = false;      ///< reading and writing: a signal comes before each call, which moves a part
  std::string started = {};  ///< programs, with their parameters; something harmless ran in their place
  int child = 0;             ///< the process that did so last
  unsigned long volume = 0;  ///< the magic number that fstatfs() is to tell; 0: the true one
  std::uint64_t device = 0;  ///< that fstat() is to tell; 0: the true one
  std::uint32_t dos_bits = 0x20;  ///< of the one file on a volume that keeps them in a place of its own
  struct timespec now = {};       ///< where its seconds are set: when files are made
  int rests = 0;                  ///< for a tick of that clock
};

/// Those since it was reset; kept by all threads.
platform::test::Locked<SystemCalls> Calls();

}  // namespace platform::posix::test
