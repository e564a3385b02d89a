#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

#include "platform/file_system.h"

namespace engine {

/// The target folder of a run, as it was when the run began.
class TargetRoot {
 public:
  TargetRoot(platform::FileSystem& files, std::string path)
      : files_(files), path_(std::move(path)), identity_(files.IdentityOf(path_)) {}

  const std::string& path() const { return path_; }

  /// False when another folder, or none, lies at the path by now: where a disk is taken away, the empty
  /// folder on which it was mounted shows in its place.
  bool IsThere() const { return !identity_ || files_.IdentityOf(path_) == identity_; }

  /// Takes a folder of the target for one of the source. False when it is another's already: links and mounts
  /// can lead to one folder under two names. A folder whose volume tells no identity is always free.
  bool Claim(const platform::Folder& folder) {
    const auto& identity = folder.identity();
    if (!identity || folder.path() == path_) return true;
    return identity != identity_ && claimed_.insert(*identity).second;
  }

 private:
  struct Hash {
    std::size_t operator()(const platform::Identity& identity) const {
      return std::hash<std::uint64_t>{}(identity.number ^ (identity.volume << 40));
    }
  };

  platform::FileSystem& files_;
  std::string path_;
  std::optional<platform::Identity> identity_;
  std::unordered_set<platform::Identity, Hash> claimed_;
};

}  // namespace engine
