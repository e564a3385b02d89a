#pragma once

#include <chrono>

#include "platform/clock.h"

namespace app {

/// A window that reads a disk while it is used does so in slices: milliseconds of its timer between them.
inline constexpr std::chrono::milliseconds kBetweenSlices{1};

/// One slice: calls `step` until it says false, that nothing is left, or the slice is over: short enough that
/// the window answers at once, long enough that reading makes up most of the time. Returns what the last call
/// said.
template <typename Step>
bool ReadForASlice(platform::Clock& clock, Step step) {
  constexpr std::chrono::milliseconds kSlice{40};
  const auto end = clock.Monotonic() + kSlice;
  bool more = step();
  while (more && clock.Monotonic() < end) more = step();
  return more;
}

}  // namespace app
