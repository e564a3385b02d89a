#include "platform/posix/volume/physical_disk.h"

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

/// A word of /proc/self/mountinfo, in which spaces and backslashes are written as "\040" and "\134"
/// (proc(5)).
std::string Unescaped(const std::string& word) {
  constexpr std::size_t kDigits = 3;
  std::string plain;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (word[i] == '\\' && i + kDigits < word.size()) {
      plain += static_cast<char>(std::stoi(word.substr(i + 1, kDigits), nullptr, 8));
      i += kDigits;
    } else {
      plain += word[i];
    }
  }
  return plain;
}

class DiskSearch {
 public:
  explicit DiskSearch(const DeviceTree& tree) : tree_(tree) {}

  void AddDisksOf(const std::string& path, int depth) {
    std::optional<dev_t> number = NumberOf(path, false);
    // Btrfs and others number their volumes themselves.
    if (number && major(*number) == 0) {
      std::error_code failure;
      std::ifstream mounts(tree_.mounts);
      const std::string source = SourceOfMount(mounts, fs::canonical(path, failure));
      number = source.starts_with("/dev/") ? NumberOf(source, true) : std::nullopt;
    }
    if (number) AddDisksBelow(tree_.devices + "/" + NameOf(*number), depth);
  }

  const std::vector<std::string>& disks() const { return disks_; }

 private:
  static std::string NameOf(dev_t number) {
    return std::to_string(major(number)) + ":" + std::to_string(minor(number));
  }

  /// `link`: leads to the device, if there is one.
  void AddDisksBelow(const fs::path& link, int depth) {
    std::error_code failure;
    const fs::path device = fs::canonical(link, failure);
    if (failure || depth > kDeepest) return;
    std::string image;
    if (std::getline(std::ifstream(device / "loop" / "backing_file"), image))
      return AddDisksOf(image, depth + 1);
    const fs::directory_iterator parts(device / "slaves", failure);
    if (parts == fs::directory_iterator()) return Add(device);
    for (const auto& part : parts) AddDisksBelow(part.path(), depth + 1);
  }

  void Add(const fs::path& device) {
    std::error_code failure;
    const bool is_partition = fs::exists(device / "partition", failure);
    const std::string name = (is_partition ? device.parent_path() : device).filename();
    if (std::ranges::find(disks_, name) == disks_.end()) disks_.push_back(name);
  }

  const DeviceTree& tree_;
  std::vector<std::string> disks_;
};

}  // namespace

std::string SourceOfMount(std::istream& mounts, const std::string& path) {
  std::string source;
  std::string deepest;
  for (std::string line; std::getline(mounts, line);) {
    std::istringstream words(line);
    std::string word;
    std::string place;
    words >> word >> word >> word >> word >> place;
    place = Unescaped(place);
    while (words >> word && word != "-") {
    }
    if (!IsInside(path, place) || place.size() < deepest.size()) continue;
    deepest = place;
    words >> word >> source;  // the last one covers those before it
  }
  return Unescaped(source);
}

std::vector<std::string> DisksOfVolume(const std::string& path, const DeviceTree& tree) {
  DiskSearch search(tree);
  search.AddDisksOf(path, 0);
  return search.disks();
}

bool Turns(const std::string& path, const DeviceTree& tree) {
  const std::vector<std::string> disks = DisksOfVolume(path, tree);
  return std::ranges::any_of(disks, [&](const std::string& disk) {
    return std::ifstream(tree.disks + "/" + disk + "/queue/rotational").get() == '1';
  });
}

}  // namespace platform::posix
