#pragma once

#include <string>
#include <vector>

namespace platform::posix {

/// As FileSystem::DisksOf(): the kernel's names of the disks ("sda", "nvme0n1"), behind partitions,
/// encryption and arrays.
std::vector<std::string> DisksOfVolume(const std::string& path);

}  // namespace platform::posix
