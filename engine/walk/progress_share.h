#pragma once

#include <cstddef>

namespace engine {

/// The part of a run's progress that a folder and everything below it stand for; the whole run is 1.
struct ProgressShare {
  double begin = 0;
  double size = 0;

  /// One of `count` equal parts of it, counted from 0.
  ProgressShare Part(std::size_t index, std::size_t count) const {
    const double part = size / static_cast<double>(count);
    return {begin + static_cast<double>(index) * part, part};
  }
};

}  // namespace engine
