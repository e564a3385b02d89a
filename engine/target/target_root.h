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

  /// False when another folder, or none, is at the path by now: where a disk is taken away, the empty
  /// folder on which it was mounted shows in its place.
  bool IsThere() const { return !identity_ || files_.IdentityOf(path_) == identity_; }

  /// Gives a copy in a folder of the target the spelling that its source has by now, where the two differ in
  /// case only. Where the target turns out to spell names in its own way, it is left alone from then on.
  void TakeSpelling(const std::string& folder, const platform::Entry& copy, const std::string& name);

  /// Takes a folder of the target for one of the source. False when it is another's already: links and mounts
  /// can lead to one folder under two names. A folder whose volume reports no identity is always free.
  bool Claim(const platform::Folder& folder) {
    const auto& identity = folder.identity();
    if (!identity || folder.path() == path_) return true;
    return identity != identity_ && claimed_.insert(*identity).second;
  }

 private:
  bool KeepsSpelling(const std::string& folder, const std::string& name);

  struct Hash {
    std::size_t operator()(const platform::Identity& identity) const {
      return std::hash<std::uint64_t>{}(identity.number ^ (identity.volume << 40));
    }
  };

  platform::FileSystem& files_;
  std::string path_;
  std::optional<platform::Identity> identity_;
  std::unordered_set<platform::Identity, Hash> claimed_;
  std::optional<bool> keeps_spelling_;
};

}  // namespace engine
