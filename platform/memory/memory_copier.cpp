// How a MemoryFileSystem copies, and what it loses when the power fails.

#include <algorithm>
#include <random>
#include <utility>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_node.h"
#include "platform/path.h"
#include "platform/read_back.h"

namespace platform::memory {
namespace {

constexpr std::chrono::hours kNoLimit{1000};

std::string PathOf(const Folder& folder, const std::string& name) {
  return JoinPath(folder.path(), name, PathStyle::kPosix);
}

void MakeZeros(const NodePtr& node) { std::fill(node->content.begin(), node->content.end(), '\0'); }

}  // namespace

class MemoryDraft : public Draft {
 public:
  MemoryDraft(MemoryFileSystem& files, const CopyOrder& order)
      : files_(files),
        order_(order),
        source_path_(PathOf(*order.source, order.file->name)),
        target_path_(PathOf(*order.target, order.file->name)) {}

  ~MemoryDraft() override {
    if (replaced_) GiveUp(*replaced_);
    if (!file_ || is_published_) return;
    files_.WillChange(folder_, file_->name);
    std::erase(folder_->children, file_);
    GiveUp(*file_);
  }

  Result<CopyOutcome> Write(const CopyProgress& watcher) override {
    if (auto error = files_.Enter(Call::kCopyFile, target_path_)) return *error;
    if (auto error = files_.Enter(Call::kReadSource, source_path_)) return *error;
    if (files_.IsReadOnlyPlace(target_path_)) return MakeError(ErrorKind::kReadOnlyMedium);
    if (files_.kept_read_only_.contains(target_path_)) return MakeError(ErrorKind::kAccessDenied);
    const auto source = files_.Find(source_path_);
    if (!source) return source.error();
    if ((*source)->kind == NodeKind::kFolder) return MakeError(ErrorKind::kIsAFolder);
    if ((*source)->kind != NodeKind::kFile) return MakeError(ErrorKind::kOther);
    const auto folder = files_.Find(order_.target->path());
    if (!folder) return folder.error();
    folder_ = *folder;
    const std::pair before((*source)->size, (*source)->modified);
    if (auto error = files_.MoveBlocks(source_path_, **source, watcher)) return *error;
    if ((*source)->size < before.first) return MakeError(ErrorKind::kShort);
    return Make(**source, before != std::pair((*source)->size, (*source)->modified));
  }

  Status ReadBack(const CopyProgress& watcher) override {
    if (auto error = files_.Enter(Call::kReadBack, target_path_)) return NotAsWritten(*error);
    return platform::ReadBack(*files_.Reader(file_), written_, watcher);
  }

  Status Publish() override {
    if (auto error = files_.Enter(Call::kPublish, target_path_)) return *error;
    const NodePtr old = FindChild(*folder_, order_.file->name, files_.folding_);
    if (old && old->kind == NodeKind::kFolder) return MakeError(ErrorKind::kIsAFolder);
    if (old && order_.name == TargetName::kFree) return MakeError(ErrorKind::kNameTaken);
    std::vector<NodePtr>& children = folder_->children;
    files_.WillChange(folder_, file_->name);
    std::erase(children, file_);
    files_.WillChange(folder_, old ? old->name : order_.file->name);
    // A volume that takes two spellings for one keeps the first.
    file_->name = old ? old->name : MemoryFileSystem::StoredName(*folder_, order_.file->name);
    if (old) {
      *std::find(children.begin(), children.end(), old) = file_;
      replaced_ = old;
    } else {
      children.push_back(file_);
    }
    file_->changed = files_.Change();
    is_published_ = true;
    return Done{};
  }

  const std::string& target_path() const { return target_path_; }

 private:
  CopyOutcome Make(const Node& source, bool changed) {
    FileTime modified = source.modified;
    if (source.size == order_.file->size && order_.file->modified && !changed)
      modified = *order_.file->modified;
    if (changed) modified.seconds -= kEarlierWhenChanged.count();
    file_ = std::make_shared<Node>(Node{MakeTemporaryName(),
                                        NodeKind::kFile,
                                        {},
                                        source.content,
                                        source.size,
                                        modified,
                                        source.attributes & kSystem,
                                        {},
                                        false});
    FingerprintTaker fingerprint;
    fingerprint.Add(file_->content);
    written_ = fingerprint.Taken();
    if (files_.garbled_.contains(target_path_)) file_->content.back() ^= 1;
    files_.WillChange(folder_, file_->name);
    folder_->children.push_back(file_);
    file_->is_on_disk = false;
    files_.not_on_disk_.push_back(file_);
    files_.TakeSpace(source.size);
    return {file_->size, source.attributes, file_->attributes, changed};
  }

  void GiveUp(Node& node) {
    if (node.kind == NodeKind::kFile) files_.TakeSpace(-node.size);
    node.is_given_up = true;
  }

  MemoryFileSystem& files_;
  const CopyOrder& order_;
  const std::string source_path_;
  const std::string target_path_;
  NodePtr folder_;
  NodePtr file_;
  NodePtr replaced_;
  Fingerprint written_;
  bool is_published_ = false;
};

class MemoryCopyVolume : public CopyVolume {
 public:
  explicit MemoryCopyVolume(MemoryFileSystem& files) : files_(files) {}

  CopyLimits limits() const override {
    constexpr std::size_t kAny = 1'000'000;
    // A copier begins with a quarter of a group.
    return {0, 1, false, false, files_.group_size_ * 4, std::int64_t{1} << 60, kAny, kNoLimit};
  }
  std::unique_ptr<Draft> Prepare(const CopyOrder& order) override {
    return std::make_unique<MemoryDraft>(files_, order);
  }
  Status SaveData(const Drafts& drafts) override { return Save(Call::kSaveData, drafts); }
  Status SaveNames(const Drafts& drafts) override { return Save(Call::kSaveNames, drafts); }

 private:
  Status Save(Call call, const Drafts& drafts) {
    if (auto error = files_.Enter(call, static_cast<const MemoryDraft&>(*drafts.front()).target_path()))
      return *error;
    files_.FlushAll();
    return Done{};
  }

  MemoryFileSystem& files_;
};

std::unique_ptr<Copier> MemoryFileSystem::MakeCopier(const std::string&, const std::string&) {
  return std::make_unique<GroupedCopier>(std::make_shared<MemoryCopyVolume>(*this), copy_threads_);
}

Result<FileTime> MemoryFileSystem::ChangedAt(const std::string& path) {
  const auto node = Find(path);
  if (!node) return node.error();
  return (*node)->changed;
}

std::optional<Error> MemoryFileSystem::MoveBlocks(const std::string& path, const Node& source,
                                                  const CopyProgress& watcher) const {
  std::int64_t done = 0;
  if (watcher && !watcher(0)) return MakeError(ErrorKind::kCancelled);
  while (done < source.size) {
    done += std::min(block_size_, source.size - done);
    if (!FitsOnDisk(done)) return MakeError(ErrorKind::kDiskFull);
    if (before_) before_(Call::kReadBlock, path);
    if (watcher && !watcher(done)) return MakeError(ErrorKind::kCancelled);
  }
  return std::nullopt;
}

void MemoryFileSystem::WillChange(const NodePtr& folder, const std::string& name) {
  const bool is_known =
      std::any_of(names_on_disk_.begin(), names_on_disk_.end(),
                  [&](const NameOnDisk& known) { return known.folder == folder && known.name == name; });
  if (!is_known) names_on_disk_.push_back({folder, name, FindChild(*folder, name, nullptr)});
}

void MemoryFileSystem::FlushAll() {
  names_on_disk_.clear();
  for (const NodePtr& node : not_on_disk_) node->is_on_disk = true;
  not_on_disk_.clear();
}

void MemoryFileSystem::CutPower(unsigned random) {
  std::minstd_rand choose(random);
  for (const NodePtr& node : not_on_disk_) MakeZeros(node);
  for (const NameOnDisk& known : names_on_disk_) {
    if ((choose() & 64) == 0) continue;
    std::erase_if(known.folder->children, [&](const NodePtr& child) { return child->name == known.name; });
    if (!known.node) continue;
    if (known.node->is_given_up) known.node->content.assign(known.node->content.size(), '?');
    auto shown = std::make_shared<Node>(*known.node);
    shown->name = known.name;
    known.folder->children.push_back(shown);
  }
  names_on_disk_.clear();
  not_on_disk_.clear();
  is_dead_ = true;
}

}  // namespace platform::memory
