#pragma once

#include <string>

namespace platform::windows {

/// Whether a folder (long form) lies on a volume of the FAT family (not exFAT). False when that cannot be
/// told.
bool IsOnFat(const std::wstring& folder);

}  // namespace platform::windows
