#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "ui/peer.h"

namespace report {

enum class Direction { kForward, kBack };

/// Where a text was found.
struct FoundText {
  ui::Selection place;
  bool went_round = false;  ///< past an end of the text, to go on at the other one
};

/// Looks for `wanted` in a text, both in lower case: forward from the place `from` on (in code points), back
/// for one that begins before it, and in the end round. None: `wanted` is empty or is nowhere.
std::optional<FoundText> FindText(std::string_view text, std::string_view wanted, std::size_t from,
                                  Direction direction);

}  // namespace report
