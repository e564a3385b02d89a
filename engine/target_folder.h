#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "engine/target_root.h"
#include "platform/file_system.h"

namespace engine {

/// A folder of the target, and what the run knows of it: whether it is there, by the listing of the folder
/// above it, and why nothing may be copied into it, if so. Those below it hold it.
///
/// What is not listed is made. When the target then says that something has the name, it takes the name for
/// another one, such as one in other letters: the folder is refused, so that no folder of the target ever
/// receives two of the source.
class TargetFolder {
 public:
  using Ptr = std::shared_ptr<TargetFolder>;

  /// `source`: the folder whose copies it receives. `above`: null for the target of the run itself.
  TargetFolder(std::string path, std::string source, Ptr above, bool is_there)
      : path_(std::move(path)), source_(std::move(source)), above_(std::move(above)), is_there_(is_there) {}

  const std::string& path() const { return path_; }
  const std::string& source() const { return source_; }
  bool is_there() const { return is_there_; }
  bool is_root() const { return above_ == nullptr; }

  /// Which links may be at it: any at the user's choice itself, below it only trusted ones.
  platform::FollowLinks links() const {
    return is_root() ? platform::FollowLinks::kAll : platform::FollowLinks::kTrusted;
  }

  void SetThere() { is_there_ = true; }
  /// It was there, and is not any more; or it is no folder.
  void SetMissing() { is_there_ = false; }

  /// Nothing goes into it or below it.
  void Refuse(platform::Error why) { refused_ = std::move(why); }
  /// Why, for this folder or the nearest one above it.
  const std::optional<platform::Error>& refused() const;

  /// Makes it and those above it that are missing, each open to no more people than its source. The root is
  /// never made, nor is anything where it lay: kNotFound when it is gone. kNameTaken when the target takes
  /// the name for that of another folder, kAlreadyExists when something else is in the way.
  platform::Status Ensure(platform::FileSystem& files, const TargetRoot& root);

 private:
  platform::Status Make(platform::FileSystem& files);
  /// Whether it was there and somebody took it away. False for the root.
  bool HasVanished(platform::FileSystem& files);

  std::string path_;
  std::string source_;
  Ptr above_;
  bool is_there_ = false;
  std::optional<platform::Error> refused_;
};

}  // namespace engine
