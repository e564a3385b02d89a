// The calls by which a test sets the scene in a MemoryFileSystem and looks at it.

#include <algorithm>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_node.h"
#include "platform/path.h"

namespace platform::memory {
namespace {

NodePtr AddChild(Node& folder, std::string_view name, Folding folding) {
  if (NodePtr old = FindChild(folder, name, folding)) return old;
  auto node = std::make_shared<Node>();
  node->name = name;
  node->folding = folder.folding;
  folder.children.push_back(node);
  return node;
}

}  // namespace

NodePtr MemoryFileSystem::MakeNode(const std::string& path) {
  const std::string parent = ParentOf(path, PathStyle::kPosix);
  AddFolder(parent);
  const auto folder = Walk(root_, parent, LastLink::kFollow, folding_);
  return AddChild(*folder->node, StoredName(*folder->node, NameOf(path, PathStyle::kPosix)), folding_);
}

void MemoryFileSystem::AddFolder(const std::string& path) {
  if (Walk(root_, path, LastLink::kFollow, folding_).ok()) return;
  MakeNode(path)->kind = NodeKind::kFolder;
}

void MemoryFileSystem::AddFile(const std::string& path, std::string content, FileTime modified,
                               Attributes attributes) {
  const NodePtr node = MakeNode(path);
  node->kind = NodeKind::kFile;
  node->size = static_cast<std::int64_t>(content.size());
  node->content = std::move(content);
  node->modified = modified;
  node->attributes = attributes;
}

void MemoryFileSystem::AddHugeFile(const std::string& path, std::int64_t size, FileTime modified) {
  AddFile(path, {}, modified);
  Find(path).value()->size = size;
}

void MemoryFileSystem::AddLink(const std::string& path, const std::string& destination) {
  const NodePtr node = MakeNode(path);
  node->kind = NodeKind::kLink;
  node->destination = destination;
}

void MemoryFileSystem::MakeForeign(const std::string& path) {
  Walk(root_, path, LastLink::kKeep, folding_)->node->is_foreign = true;
}

void MemoryFileSystem::FoldNames(const std::string& folder, bool numbers_by_spelling) {
  AddFolder(folder);
  Find(folder).value()->folding = &FoldMuch;
  numbers_by_spelling_ = numbers_by_spelling;
}

void MemoryFileSystem::AddPipe(const std::string& path) { MakeNode(path)->kind = NodeKind::kPipe; }

void MemoryFileSystem::AddMountPoint(const std::string& path) {
  AddFolder(path);
  Find(path).value()->is_mount_point = true;
}

void MemoryFileSystem::MountAgain(const std::string& folder, const std::string& in) {
  AddFolder(in);
  Find(in).value()->children.push_back(Find(folder).value());
  Find(folder).value()->has_other_places = true;
}

void MemoryFileSystem::Remove(const std::string& path) {
  const auto place = Walk(root_, path, LastLink::kKeep, folding_);
  const auto parent = Walk(root_, ParentOf(path, PathStyle::kPosix), LastLink::kFollow, folding_);
  if (place.ok() && parent.ok()) std::erase(parent->node->children, place->node);
}

bool MemoryFileSystem::Exists(const std::string& path) const {
  return Walk(root_, path, LastLink::kKeep, folding_).ok();
}

std::string MemoryFileSystem::ContentOf(const std::string& path) const {
  const auto node = Find(path);
  return node.ok() ? (*node)->content : std::string();
}

FileTime MemoryFileSystem::ModifiedOf(const std::string& path) const {
  const auto node = Find(path);
  return node.ok() ? (*node)->modified : FileTime();
}

Attributes MemoryFileSystem::AttributesOf(const std::string& path) const {
  const auto node = Find(path);
  return node.ok() ? (*node)->attributes : Attributes{0};
}

std::vector<std::string> MemoryFileSystem::NamesIn(const std::string& path) const {
  std::vector<std::string> names;
  const auto node = Find(path);
  if (!node.ok()) return names;
  for (const NodePtr& child : (*node)->children) names.push_back(child->name);
  std::sort(names.begin(), names.end());
  return names;
}

std::size_t MemoryFileSystem::CountOf(Call call) const {
  const auto is_call = [call](const Touch& touch) { return touch.call == call; };
  return static_cast<std::size_t>(std::count_if(touched_.begin(), touched_.end(), is_call));
}

void MemoryFileSystem::Fail(Call call, const std::string& path, Error error, int times) {
  faults_.push_back({call, path, std::move(error), times});
}

void MemoryFileSystem::SetSpace(std::int64_t free, std::int64_t total) { space_ = DiskSpace{free, total}; }

void MemoryFileSystem::SetReadOnly(const std::string& path) { read_only_places_.insert(path); }

void MemoryFileSystem::KeepReadOnly(const std::string& path) { kept_read_only_.insert(path); }

}  // namespace platform::memory
