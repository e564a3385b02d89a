#pragma once

#include <string>

#include "platform/result.h"

namespace platform::posix {

/// To whom something belongs, a link for itself.
struct Owner {
  bool is_trusted;  ///< the user who runs the program, or root
  bool is_link;
};

Result<Owner> OwnerOf(const std::string& path);

}  // namespace platform::posix
