#pragma once

#include "platform/result.h"

namespace platform::posix {

/// The failure that an errno number stands for.
Error ErrorOf(int number);

/// The failure that errno names now.
Error LastError();

/// As LastError(), after a call that makes a name: there EINVAL means that the volume does not allow the name
/// (vfat and its kin, path_resolution(7)).
Error LastNameError();

}  // namespace platform::posix
