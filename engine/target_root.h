#pragma once

#include <optional>
#include <string>
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

 private:
  platform::FileSystem& files_;
  std::string path_;
  std::optional<platform::FolderIdentity> identity_;
};

}  // namespace engine
