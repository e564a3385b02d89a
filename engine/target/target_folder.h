#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "engine/target/target_root.h"
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

  /// The target of the run itself, for the copies of `source`.
  TargetFolder(std::string path, std::string source)
      : name_(std::move(path)), source_(std::move(source)), root_(this), is_there_(true) {}
  ~TargetFolder();
  TargetFolder(const TargetFolder&) = delete;
  TargetFolder& operator=(const TargetFolder&) = delete;

  /// The folder `name` below `above`, for the copies of the folder `name` below that of `above`. Not there
  /// until SetThere() says so.
  static Ptr Below(Ptr above, const std::string& name);

  /// Put together anew by each call: folders far down keep little more than their names.
  std::string path() const;
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
  void Refuse(platform::Error why);
  /// Why, for this folder or the nearest one above it.
  const std::optional<platform::Error>& refused() const { return Refuser().refused_; }

  /// Makes it and those above it that are missing, each open to no more people than its source. The root is
  /// never made, nor is anything where it lay: kNotFound when it is gone. kNameTaken when the target takes
  /// the name for that of another folder, kAlreadyExists when something else is in the way.
  platform::Status Ensure(platform::FileSystem& files, const TargetRoot& root);

 private:
  TargetFolder() = default;
  platform::Status Make(platform::FileSystem& files);
  /// The folder whose copies it receives.
  std::string Source() const;
  /// The nearest refused folder from here upwards; the root when there is none.
  const TargetFolder& Refuser() const;

  std::string name_;        ///< the whole path where `levels_` is 0
  std::size_t levels_ = 0;  ///< below the nearest folder that keeps its whole path
  std::string source_;      ///< of the root
  Ptr above_;
  TargetFolder* root_ = nullptr;
  bool is_there_ = false;
  std::optional<platform::Error> refused_;
  std::size_t refusals_ = 0;  ///< of the root: in the whole target so far
  /// What Refuser() found, and when: after so many refusals.
  mutable const TargetFolder* refuser_ = nullptr;
  mutable std::size_t refuser_found_after_ = 0;
};

}  // namespace engine
