#include "engine/target/folder_pair.h"

#include <algorithm>
#include <utility>

#include "platform/path.h"

namespace engine {

using platform::Entry;
using platform::EntryKind;
using platform::Status;

FolderPair::FolderPair(platform::FileSystem& files, std::unique_ptr<platform::Folder> source,
                       TargetFolder::Ptr target)
    : files_(&files), source_(std::move(source)), place_(std::move(target)) {
  if (place_) target_path_ = place_->path();
}

platform::Result<FolderPair> FolderPair::Open(platform::FileSystem& files, const std::string& source,
                                              TargetFolder::Ptr target) {
  auto folder = files.OpenFolder(source);
  if (!folder) return folder.error();
  return FolderPair(files, std::move(*folder), std::move(target));
}

Status FolderPair::OpenTarget() {
  auto folder = files_->OpenFolder(target_path(), place_->links());
  if (!folder) return folder.error();
  target_ = std::move(*folder);
  next_ = 0;
  index_.clear();
  spellings_.reset();
  return platform::Done{};
}

Status FolderPair::EnsureTarget(TargetRoot& root) {
  if (target_) return platform::Done{};
  if (const Status there = place_->Ensure(*files_, root); !there) return there;
  if (const Status opened = OpenTarget(); !opened) return opened;
  root.Claim(*target_);
  return platform::Done{};
}

std::size_t FolderPair::PlaceInTarget(const std::string& name) {
  const std::vector<Entry>& entries = target_->entries();
  if (index_.empty()) {
    for (std::size_t i = 0; i < entries.size(); ++i) index_.emplace(entries[i].name, i);
  }
  const auto found = index_.find(name);
  return found == index_.end() ? entries.size() : found->second;
}

const Entry* FolderPair::TargetOf(const Entry& source) {
  if (!target_) return nullptr;
  const std::vector<Entry>& entries = target_->entries();
  if (next_ >= entries.size() || entries[next_].name != source.name) {
    const std::size_t place = PlaceInTarget(source.name);
    if (place == entries.size()) return OtherSpellingOf(source);
    next_ = place;
  }
  return &entries[next_++];
}

bool FolderPair::IsOneFolder() const {
  return target_ && source_->identity() && source_->identity() == target_->identity();
}

const Entry* FolderPair::OtherSpellingOf(const Entry& source) {
  if (!spellings_) spellings_.emplace(*files_, *source_, *target_);
  return spellings_->Find(source);
}

bool FolderPair::IsNoCopy(const Entry& source_file, const Entry& target) const {
  if (target.is_link) return true;
  if (target.number == 0 || target.number != source_file.number) return false;
  // Numbers of two volumes may be equal by chance.
  const auto identity = files_->IdentityOf(platform::JoinPath(target_path(), target.name));
  return identity && identity == files_->IdentityOf(platform::JoinPath(source_->path(), source_file.name));
}

std::vector<std::string> FolderPair::Leftovers(EntryKind kind) const {
  std::vector<std::string> names;
  if (!target_) return names;
  const auto in_source = [this](const std::string& name) {
    return std::any_of(source_->entries().begin(), source_->entries().end(),
                       [&](const Entry& entry) { return entry.name == name; });
  };
  for (const Entry& entry : target_->entries()) {
    if (entry.kind == kind && platform::IsTemporaryName(entry.name) && !in_source(entry.name))
      names.push_back(entry.name);
  }
  return names;
}

}  // namespace engine
