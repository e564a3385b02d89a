#include "platform/memory/memory_file_system.h"

#include <algorithm>
#include <utility>

#include "platform/memory/memory_node.h"
#include "platform/path.h"

namespace platform::memory {
namespace {

constexpr FileTime kTimeOfWrites{1'700'000'000, 0};
constexpr DiskSpace kUnlimited{std::int64_t{1} << 40, std::int64_t{1} << 41};

class MemoryFolder : public Folder {
 public:
  MemoryFolder(const std::string& path, const Node& node, Identity identity, bool is_link,
               std::vector<Entry> entries) {
    path_ = path;
    is_link_ = is_link;
    entries_ = std::move(entries);
    identity_ = identity;
    is_mount_point_ = node.is_mount_point;
  }
};

class MemoryLock : public FileLock {
 public:
  explicit MemoryLock(std::function<void()> release) : release_(std::move(release)) {}
  ~MemoryLock() override { release_(); }
  MemoryLock(const MemoryLock&) = delete;
  MemoryLock& operator=(const MemoryLock&) = delete;

 private:
  std::function<void()> release_;
};

std::string Parent(const std::string& path) { return ParentOf(path, PathStyle::kPosix); }

std::string Join(const std::string& folder, const std::string& name) {
  return JoinPath(folder, name, PathStyle::kPosix);
}

}  // namespace

MemoryFileSystem::MemoryFileSystem() : root_(std::make_shared<Node>()) { root_->kind = NodeKind::kFolder; }

MemoryFileSystem::~MemoryFileSystem() = default;

std::optional<Error> MemoryFileSystem::Enter(Call call, const std::string& path) {
  if (before_) before_(call, path);
  touched_.push_back({call, path});
  if (is_dead_) return MakeError(ErrorKind::kOther);
  for (auto fault = faults_.begin(); fault != faults_.end(); ++fault) {
    if (fault->call != call || (!fault->path.empty() && fault->path != path)) continue;
    Error error = fault->error;
    if (fault->left > 0 && --fault->left == 0) faults_.erase(fault);
    return error;
  }
  return std::nullopt;
}

Result<NodePtr> MemoryFileSystem::Find(const std::string& path) const {
  auto place = Walk(root_, path, LastLink::kFollow, folding_);
  if (!place.ok()) return place.error();
  return place->node;
}

bool MemoryFileSystem::IsReadOnlyPlace(const std::string& path) const {
  return std::any_of(read_only_places_.begin(), read_only_places_.end(),
                     [&path](const std::string& place) { return IsInside(path, place, PathStyle::kPosix); });
}

bool MemoryFileSystem::FitsOnDisk(std::int64_t bytes) const { return !space_ || bytes <= space_->free; }

void MemoryFileSystem::TakeSpace(std::int64_t bytes) {
  if (space_) space_->free -= bytes;
}

Entry MemoryFileSystem::EntryOf(const NodePtr& node, const std::string& path) const {
  Entry entry;
  entry.name = NameOf(path, PathStyle::kPosix);
  entry.is_link = node->kind == NodeKind::kLink;
  NodePtr end = node;
  if (node->kind == NodeKind::kLink) {
    const auto followed = Find(path);
    end = followed.ok() ? *followed : nullptr;
  }
  if (end) entry.number = IdentityOf(*end, path).number;
  if (!end) {
    entry.kind = EntryKind::kDeadLink;
  } else if (end->kind == NodeKind::kFolder) {
    entry.kind = node->kind == NodeKind::kLink ? EntryKind::kFolderLink : EntryKind::kFolder;
  } else if (end->kind == NodeKind::kPipe) {
    entry.kind = EntryKind::kOther;
  } else {
    entry.size = end->size;
    entry.modified = end->modified;
    entry.attributes = end->attributes;
    entry.has_other_names = end->has_other_places;
  }
  return entry;
}

Result<std::unique_ptr<Folder>> MemoryFileSystem::OpenFolder(const std::string& path, FollowLinks links) {
  if (auto error = Enter(Call::kOpenFolder, path)) return *error;
  const auto first = Walk(root_, path, LastLink::kKeep, folding_);
  const bool is_link = first && first->node->kind == NodeKind::kLink;
  if (is_link && first->node->is_foreign && links == FollowLinks::kTrusted)
    return MakeError(ErrorKind::kForeignLink);
  const auto node = Find(path);
  if (!node.ok()) return node.error();
  if ((*node)->kind != NodeKind::kFolder) return MakeError(ErrorKind::kNotAFolder);
  std::vector<Entry> entries;
  for (const NodePtr& child : (*node)->children) entries.push_back(EntryOf(child, Join(path, child->name)));
  return std::unique_ptr<Folder>(
      std::make_unique<MemoryFolder>(path, **node, IdentityOf(**node, path), is_link, std::move(entries)));
}

Result<Entry> MemoryFileSystem::Stat(const std::string& path) {
  if (auto error = Enter(Call::kLook, path)) return *error;
  const auto place = Walk(root_, path, LastLink::kKeep, folding_);
  if (!place.ok()) return place.error();
  return EntryOf(place->node, path);
}

Result<std::string> MemoryFileSystem::RealPath(const std::string& path) {
  auto place = Walk(root_, path, LastLink::kFollow, folding_);
  if (!place.ok()) return place.error();
  return std::move(place->path);
}

std::optional<Identity> MemoryFileSystem::IdentityOf(const std::string& path) {
  const auto node = Find(path);
  if (!node.ok()) return std::nullopt;
  return IdentityOf(**node, path);
}

Identity MemoryFileSystem::IdentityOf(const Node& node, const std::string& path) const {
  if (numbers_by_spelling_) return {1, std::hash<std::string>{}(path)};
  return {0, reinterpret_cast<std::uintptr_t>(&node)};
}

std::string MemoryFileSystem::StoredName(const Node& folder, std::string_view name) {
  if (folder.folding == &FoldMuch) name = name.substr(0, name.find_last_not_of('.') + 1);
  return std::string(name);
}

bool MemoryFileSystem::BelongsToUser(const std::string& path) {
  const auto place = Walk(root_, path, LastLink::kKeep, folding_);
  return place && !place->node->is_foreign;
}

Status MemoryFileSystem::WriteNewFile(const std::string& path, const std::string& content) {
  if (auto error = Enter(Call::kWriteFile, path)) return *error;
  if (Exists(path)) return MakeError(ErrorKind::kAlreadyExists);
  return Put(path, content);
}

Status MemoryFileSystem::Respell(const std::string& folder, const std::string& from, const std::string& to) {
  if (auto error = Enter(Call::kRespell, Join(folder, from))) return *error;
  const auto node = Walk(root_, Join(folder, from), LastLink::kKeep, folding_);
  if (!node) return node.error();
  const auto other = Walk(root_, Join(folder, to), LastLink::kKeep, folding_);
  if (other && other->node != node->node) return MakeError(ErrorKind::kAlreadyExists);
  const auto parent = Find(folder);
  node->node->name = StoredName(**parent, to);
  return Done{};
}

Status MemoryFileSystem::EndRespelling(const std::string& folder, const std::string& temporary) {
  if (auto error = Enter(Call::kRespell, Join(folder, temporary))) return *error;
  const auto place = Find(folder);
  const auto between = Find(Join(folder, temporary));
  if (!place || !between) return MakeError(ErrorKind::kNotFound);
  for (const NodePtr& child : std::vector<NodePtr>((*between)->children)) {
    if (FindChild(**place, child->name, folding_)) return MakeError(ErrorKind::kAlreadyExists);
    (*place)->children.push_back(child);
    std::erase((*between)->children, child);
  }
  Remove(Join(folder, temporary));
  return Done{};
}

Status MemoryFileSystem::CreateFolder(const std::string& path, const std::string&) {
  if (auto error = Enter(Call::kCreateFolder, path)) return *error;
  if (Exists(path)) return MakeError(ErrorKind::kAlreadyExists);
  if (IsReadOnlyPlace(path)) return MakeError(ErrorKind::kReadOnlyMedium);
  const auto parent = Find(Parent(path));
  if (!parent.ok()) return parent.error();
  if ((*parent)->kind != NodeKind::kFolder) return MakeError(ErrorKind::kNotAFolder);
  WillChange(*parent, std::string(NameOf(path, PathStyle::kPosix)));
  AddFolder(path);
  return Done{};
}

Status MemoryFileSystem::RemoveFile(const std::string& path) {
  if (auto error = Enter(Call::kRemoveFile, path)) return *error;
  const auto place = Walk(root_, path, LastLink::kKeep, folding_);
  if (!place.ok()) return place.error();
  if (place->node->kind == NodeKind::kFolder) return MakeError(ErrorKind::kIsAFolder);
  if (IsReadOnlyPlace(path)) return MakeError(ErrorKind::kReadOnlyMedium);
  if (place->node->kind == NodeKind::kFile) TakeSpace(-place->node->size);
  if (const auto parent = Find(Parent(path))) WillChange(*parent, place->node->name);
  Remove(path);
  return Done{};
}

Result<Attributes> MemoryFileSystem::GetAttributes(const std::string& path) {
  if (auto error = Enter(Call::kGetAttributes, path)) return *error;
  const auto node = Find(path);
  if (!node.ok()) return node.error();
  return (*node)->attributes;
}

Status MemoryFileSystem::SetAttributes(const std::string& path, Attributes attributes) {
  if (auto error = Enter(Call::kSetAttributes, path)) return *error;
  const auto node = Find(path);
  if (!node.ok()) return node.error();
  if (IsReadOnlyPlace(path)) return MakeError(ErrorKind::kReadOnlyMedium);
  const bool clears = ((*node)->attributes & ~attributes & kReadOnly) != 0;
  if (clears && kept_read_only_.contains(path)) return MakeError(ErrorKind::kAccessDenied);
  (*node)->attributes = attributes & (kReadOnly | kHidden | kSystem);
  return Done{};
}

Result<DiskSpace> MemoryFileSystem::GetDiskSpace(const std::string& path) {
  if (auto error = Enter(Call::kSpace, path)) return *error;
  if (!Exists(path) && !Exists(Parent(path))) return MakeError(ErrorKind::kNotFound);
  return space_.value_or(kUnlimited);
}

std::int64_t MemoryFileSystem::LargestFile(const std::string&) { return largest_file_; }

std::string MemoryFileSystem::DriveOf(const std::string& path) {
  std::string at = path;
  for (; at.size() > 1; at = Parent(at)) {
    const auto node = Find(at);
    if (node && (*node)->is_mount_point) return at;
  }
  return "/";
}

std::vector<std::string> MemoryFileSystem::DisksOf(const std::string& path) {
  const std::string drive = DriveOf(path);
  const auto found = disks_.find(drive);
  return {found == disks_.end() ? drive : found->second};
}

Result<std::string> MemoryFileSystem::ReadFile(const std::string& path, std::int64_t limit) {
  if (auto error = Enter(Call::kReadFile, path)) return *error;
  const auto node = Find(path);
  if (!node.ok()) return node.error();
  if ((*node)->kind == NodeKind::kFolder) return MakeError(ErrorKind::kIsAFolder);
  if ((*node)->size > limit) return MakeError(ErrorKind::kTooLarge);
  return (*node)->content;
}

Status MemoryFileSystem::Put(const std::string& path, const std::string& content) {
  const auto parent = Find(Parent(path));
  if (!parent.ok()) return parent.error();
  if ((*parent)->kind != NodeKind::kFolder) return MakeError(ErrorKind::kNotAFolder);
  if (IsReadOnlyPlace(path)) return MakeError(ErrorKind::kReadOnlyMedium);
  const auto old = Find(path);
  if (old.ok() && (*old)->kind == NodeKind::kFolder) return MakeError(ErrorKind::kIsAFolder);
  const auto size = static_cast<std::int64_t>(content.size());
  if (!FitsOnDisk(size)) return MakeError(ErrorKind::kDiskFull);
  TakeSpace(size - (old.ok() ? (*old)->size : 0));
  AddFile(old.ok() ? RealPath(path).value() : path, content, kTimeOfWrites,
          old.ok() ? (*old)->attributes : Attributes{0});
  Find(path).value()->changed = Change();
  return Done{};
}

Status MemoryFileSystem::WriteFile(const std::string& path, const std::string& content) {
  if (auto error = Enter(Call::kWriteFile, path)) return *error;
  const auto old = Find(path);
  if (old.ok() && ((*old)->attributes & kReadOnly) != 0) return MakeError(ErrorKind::kAccessDenied);
  return Put(path, content);
}

Status MemoryFileSystem::ReplaceFile(const std::string& path, const std::string& content) {
  if (auto error = Enter(Call::kReplaceFile, path)) return *error;
  return Put(path, content);
}

Result<std::unique_ptr<FileLock>> MemoryFileSystem::Lock(const std::string& path,
                                                         const std::string& content) {
  if (auto error = Enter(Call::kLock, path)) return *error;
  const auto held = locks_.find(path);
  if (held != locks_.end()) return Error{ErrorKind::kInUse, 0, held->second};
  if (Exists(path) && Find(path).value()->kind != NodeKind::kFile)
    return MakeError(ErrorKind::kAlreadyExists);
  Remove(path);
  if (const Status put = Put(path, content); !put) return put.error();
  locks_[path] = content;
  return std::unique_ptr<FileLock>(std::make_unique<MemoryLock>([this, path] {
    locks_.erase(path);
    Remove(path);
  }));
}

Status MemoryFileSystem::Flush(const std::string& path, const IdleCallback& idle) {
  if (auto error = Enter(Call::kFlush, path)) return *error;
  FlushAll();
  if (idle && !idle()) return MakeError(ErrorKind::kCancelled);
  return Done{};
}

std::string MemoryFileSystem::NameKey(const std::string& name) const {
  return folding_ == &FoldCase ? FoldCase(name) : name;
}

}  // namespace platform::memory
