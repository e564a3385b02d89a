#include "platform/posix/physical_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <system_error>

#include "platform/path.h"
#include "platform/posix/long_path.h"
#include "platform/posix/volume.h"

namespace platform::posix {
namespace {

namespace fs = std::filesystem;

/// A chain of devices longer than this goes in a circle.
constexpr int kDeepest = 16;

/// The number of the device that holds the path, or for which it stands.
std::optional<dev_t> NumberOf(const std::string& path, bool of_device_file) {
  const auto place = Reach(path);
  struct stat facts = {};
  if (!place || fstatat(place->at(), place->rest, &facts, 0) != 0) return std::nullopt;
  return of_device_file ? facts.st_rdev : facts.st_dev;
}

/// What is mounted at a mount point, such as "/dev/sda1" (proc(5)); empty when that is not told.
std::string SourceOfMount(const std::string& mount_point) {
  std::ifstream mounts("/proc/self/mountinfo");
  std::string source;
  for (std::string line; std::getline(mounts, line);) {
    std::istringstream words(line);
    std::string word;
    std::string place;
    words >> word >> word >> word >> word >> place;
    while (words >> word && word != "-") {
    }
    if (place == mount_point) words >> word >> source;  // the last one covers those before it
  }
  return source;
}

void AddDisksBelow(const fs::path& device, int depth, std::vector<std::string>& disks) {
  std::error_code failure;
  bool is_made_of_others = false;
  for (const auto& part : fs::directory_iterator(device / "slaves", failure)) {
    is_made_of_others = true;
    if (depth < kDeepest) AddDisksBelow(fs::canonical(part.path(), failure), depth + 1, disks);
  }
  if (is_made_of_others) return;
  const bool is_partition = fs::exists(device / "partition", failure);
  const std::string name = (is_partition ? device.parent_path() : device).filename();
  if (!name.empty() && std::ranges::find(disks, name) == disks.end()) disks.push_back(name);
}

}  // namespace

std::vector<std::string> DisksOfVolume(const std::string& path) {
  std::vector<std::string> disks;
  std::optional<dev_t> number = NumberOf(path, false);
  // Btrfs and others number their volumes themselves.
  if (number && major(*number) == 0) {
    std::error_code failure;
    const std::string source = SourceOfMount(MountPointOf(fs::canonical(path, failure)));
    number = source.starts_with("/dev/") ? NumberOf(source, true) : std::nullopt;
  }
  if (!number) return disks;
  std::error_code failure;
  const fs::path device = fs::canonical(
      "/sys/dev/block/" + std::to_string(major(*number)) + ":" + std::to_string(minor(*number)), failure);
  if (!failure) AddDisksBelow(device, 0, disks);
  return disks;
}

}  // namespace platform::posix
