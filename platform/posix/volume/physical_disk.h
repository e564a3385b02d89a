#pragma once

#include <istream>
#include <string>
#include <vector>

namespace platform::posix {

/// As FileSystem::DisksOf(): the kernel's names of the disks ("sda", "nvme0n1"), behind partitions,
/// encryption, arrays and images that are mounted as disks.
std::vector<std::string> DisksOfVolume(const std::string& path);

/// What is mounted where an absolute path without links lies, such as "/dev/sda1", by the lines of
/// /proc/self/mountinfo; empty when that is not told. A folder that the file system numbers like a volume of
/// its own (a subvolume of Btrfs) need not be mounted itself.
std::string SourceOfMount(std::istream& mounts, const std::string& path);

}  // namespace platform::posix
