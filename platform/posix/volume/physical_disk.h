#pragma once

#include <istream>
#include <string>
#include <vector>

namespace platform::posix {

/// Where the system tells of its devices (sysfs(5), proc(5)).
struct DeviceTree {
  std::string devices = "/sys/dev/block";       ///< holds a link for the number of each, such as "8:1"
  std::string disks = "/sys/block";             ///< holds a folder or link for each disk, such as "sda"
  std::string mounts = "/proc/self/mountinfo";  ///< a file
};

/// As FileSystem::DisksOf(): the kernel's names of the disks ("sda", "nvme0n1"), behind partitions,
/// encryption, arrays and images that are mounted as disks.
std::vector<std::string> DisksOfVolume(const std::string& path, const DeviceTree& tree = {});

/// Whether a disk of DisksOfVolume() turns, by what the kernel says of it: it says so of virtual disks and of
/// many USB sticks, too. False where nothing is known.
bool Turns(const std::string& path, const DeviceTree& tree = {});

/// What is mounted where an absolute path without links lies, such as "/dev/sda1", by the lines of
/// /proc/self/mountinfo; empty when that is not told. A folder that the file system numbers like a volume of
/// its own (a subvolume of Btrfs) need not be mounted itself.
std::string SourceOfMount(std::istream& mounts, const std::string& path);

}  // namespace platform::posix
