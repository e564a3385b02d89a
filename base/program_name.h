#pragma once

namespace base {

/// As titles show it, and the name of the folder of the user's settings.
inline constexpr char kProgramName[] = "Quorvane";

}  // namespace base
