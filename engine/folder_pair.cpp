#include "engine/folder_pair.h"

#include <algorithm>
#include <utility>

#include "platform/path.h"

namespace engine {

using platform::Entry;
using platform::EntryKind;
using platform::ErrorKind;
using platform::Status;

FolderPair::FolderPair(platform::FileSystem& files, std::unique_ptr<platform::Folder> source,
                       std::string target_path)
    : files_(&files), source_(std::move(source)), target_path_(std::move(target_path)) {}

platform::Result<FolderPair> FolderPair::Open(platform::FileSystem& files, const std::string& source,
                                              const std::string& target) {
  auto folder = files.OpenFolder(source);
  if (!folder) return folder.error();
  return FolderPair(files, std::move(*folder), target);
}

Status FolderPair::OpenTarget() {
  auto folder = files_->OpenFolder(target_path_);
  if (!folder) return folder.error();
  target_ = std::move(*folder);
  next_ = 0;
  index_.clear();
  return platform::Done{};
}

Status FolderPair::EnsureTarget(const TargetRoot& root) {
  if (target_) return platform::Done{};
  if (!root.IsThere()) return platform::Error{ErrorKind::kNotFound, 0, {}};
  const Status created = CreateWithParents(target_path_, root.path());
  if (!created && created.error().kind != ErrorKind::kAlreadyExists) return created;
  const Status opened = OpenTarget();
  // A file or a dead link bears the name of the folder, or that of one above it.
  if (!opened && opened.error().kind == ErrorKind::kNotFound && !created) return created;
  return opened;
}

Status FolderPair::CreateWithParents(const std::string& path, const std::string& root) {
  if (path == root) return platform::Error{ErrorKind::kNotFound, 0, {}};
  Status created = files_->CreateFolder(path);
  if (created || created.error().kind != ErrorKind::kNotFound) return created;
  const std::string parent = platform::ParentOf(path);
  if (parent.empty() || parent == path || parent == root) return created;
  if (Status above = CreateWithParents(parent, root); !above) return above;
  return files_->CreateFolder(path);
}

std::size_t FolderPair::PlaceInTarget(const std::string& name) {
  const std::vector<Entry>& entries = target_->entries();
  if (index_.empty()) {
    for (std::size_t i = 0; i < entries.size(); ++i) index_.emplace(files_->NameKey(entries[i].name), i);
  }
  const auto found = index_.find(files_->NameKey(name));
  return found == index_.end() ? entries.size() : found->second;
}

const Entry* FolderPair::TargetOf(const Entry& source_file) {
  if (!target_) return nullptr;
  const std::vector<Entry>& entries = target_->entries();
  if (next_ >= entries.size() || entries[next_].name != source_file.name) {
    const std::size_t place = PlaceInTarget(source_file.name);
    if (place == entries.size()) return nullptr;
    next_ = place;
  }
  return &entries[next_++];
}

bool FolderPair::IsOneFolder() const {
  return target_ && source_->identity() && source_->identity() == target_->identity();
}

std::set<std::string> FolderPair::TargetLinks() const {
  std::set<std::string> keys;
  if (!target_) return keys;
  for (const Entry& entry : target_->entries()) {
    if (entry.kind == EntryKind::kFolderLink) keys.insert(files_->NameKey(entry.name));
  }
  return keys;
}

std::vector<std::string> FolderPair::Leftovers() {
  std::vector<std::string> names;
  if (!target_) return names;
  const auto in_source = [this](const std::string& name) {
    return std::any_of(source_->entries().begin(), source_->entries().end(),
                       [&](const Entry& entry) { return entry.name == name; });
  };
  for (const Entry& entry : target_->entries()) {
    if (entry.kind == EntryKind::kFile && platform::IsTemporaryName(entry.name) && !in_source(entry.name)) {
      names.push_back(entry.name);
    }
  }
  return names;
}

}  // namespace engine
