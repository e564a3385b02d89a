#include "engine/target_folder.h"

#include <vector>

namespace engine {

using platform::Error;
using platform::ErrorKind;
using platform::Status;

const std::optional<Error>& TargetFolder::refused() const {
  const TargetFolder* folder = this;
  while (!folder->refused_ && folder->above_) folder = folder->above_.get();
  return folder->refused_;
}

Status TargetFolder::Ensure(platform::FileSystem& files, const TargetRoot& root) {
  if (refused()) return *refused();
  if (is_there_) return platform::Done{};
  if (!root.IsThere()) return Error{ErrorKind::kNotFound, 0, {}};
  std::vector<TargetFolder*> missing;
  for (TargetFolder* folder = this; folder->above_ && !folder->is_there_; folder = folder->above_.get())
    missing.push_back(folder);
  while (!missing.empty()) {
    TargetFolder& next = *missing.back();
    const Status made = next.Make(files);
    TargetFolder* const above = next.above_.get();
    if (made) {
      missing.pop_back();
    } else if (made.error().kind == ErrorKind::kNotFound && above->HasVanished(files)) {
      missing.push_back(above);
    } else {
      return made;
    }
  }
  return is_there_ ? Status(platform::Done{}) : Error{ErrorKind::kNotFound, 0, {}};
}

bool TargetFolder::HasVanished(platform::FileSystem& files) {
  if (!above_ || !is_there_ || files.Stat(path_)) return false;
  is_there_ = false;
  return true;
}

Status TargetFolder::Make(platform::FileSystem& files) {
  const Status made = files.CreateFolder(path_, source_);
  is_there_ = made.ok();
  if (made || made.error().kind != ErrorKind::kAlreadyExists) return made;
  const auto in_the_way = files.Stat(path_);
  if (!in_the_way || !platform::IsFolder(in_the_way->kind)) return made;
  refused_ = Error{ErrorKind::kNameTaken, 0, {}};
  return *refused_;
}

}  // namespace engine
