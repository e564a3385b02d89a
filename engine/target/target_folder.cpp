#include "engine/target/target_folder.h"

#include <string_view>
#include <vector>

#include "platform/path.h"

namespace engine {
namespace {

/// Every so many levels a folder keeps its whole path. With a path each, a chain of 16,000 folders would take
/// a gigabyte.
constexpr std::size_t kLevelsPerPath = 32;

}  // namespace

using platform::Error;
using platform::ErrorKind;
using platform::Status;

/// One by one: a long chain whose last folder goes would run out of stack.
TargetFolder::~TargetFolder() {
  Ptr above = std::move(above_);
  while (above && above.use_count() == 1) above = std::move(above->above_);
}

TargetFolder::Ptr TargetFolder::Below(Ptr above, const std::string& name) {
  Ptr folder(new TargetFolder);
  const bool keeps_path = above->levels_ + 1 == kLevelsPerPath;
  folder->name_ = keeps_path ? platform::JoinPath(above->path(), name) : name;
  folder->levels_ = keeps_path ? 0 : above->levels_ + 1;
  folder->root_ = above->root_;
  folder->above_ = std::move(above);
  return folder;
}

std::string TargetFolder::path() const {
  std::vector<std::string_view> names;
  const TargetFolder* folder = this;
  for (; folder->levels_ > 0; folder = folder->above_.get()) names.push_back(folder->name_);
  std::string below;
  for (; !names.empty(); names.pop_back()) {
    if (!below.empty()) below += platform::Separator();
    below += names.back();
  }
  return platform::JoinPath(folder->name_, below);
}

std::string TargetFolder::Source() const {
  return platform::JoinPath(root_->source_, std::string_view(path()).substr(root_->name_.size()));
}

void TargetFolder::Refuse(Error why) {
  refused_ = std::move(why);
  ++root_->refusals_;
}

const TargetFolder& TargetFolder::Refuser() const {
  const auto is_known = [this](const TargetFolder& folder) {
    return folder.refuser_ != nullptr && folder.refuser_found_after_ == root_->refusals_;
  };
  const TargetFolder* folder = this;
  while (!is_known(*folder) && !folder->refused_ && folder->above_) folder = folder->above_.get();
  refuser_ = is_known(*folder) ? folder->refuser_ : folder;
  refuser_found_after_ = root_->refusals_;
  return *refuser_;
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
    } else if (made.error().kind == ErrorKind::kNotFound && above->above_ && !files.Stat(above->path())) {
      missing.push_back(above);
    } else {
      return made;
    }
  }
  return is_there_ ? Status(platform::Done{}) : Error{ErrorKind::kNotFound, 0, {}};
}

Status TargetFolder::Make(platform::FileSystem& files) {
  const std::string path = this->path();
  const Status made = files.CreateFolder(path, Source());
  is_there_ = made.ok();
  if (made || made.error().kind != ErrorKind::kAlreadyExists) return made;
  const auto in_the_way = files.Stat(path);
  if (!in_the_way || !platform::IsFolder(in_the_way->kind)) return made;
  Refuse({ErrorKind::kNameTaken, 0, {}});
  return *refused_;
}

}  // namespace engine
