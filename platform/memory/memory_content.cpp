// How a MemoryFileSystem reads files to compare them.

#include <algorithm>
#include <utility>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_node.h"
#include "platform/pair_comparer.h"
#include "platform/path.h"

namespace platform::memory {

class MemoryContent : public ReadableFile {
 public:
  MemoryContent(const MemoryFileSystem& files, NodePtr node) : files_(files), node_(std::move(node)) {}

  Result<std::size_t> Read(std::span<char> room) override {
    const std::string& content = node_->content;
    at_ = std::min(at_, content.size());
    const auto block = static_cast<std::size_t>(files_.block_size_);
    const std::size_t length = content.copy(room.data(), std::min(room.size(), block), at_);
    at_ += length;
    return length;
  }

  bool IsAsListed(const Entry& entry) const override {
    return node_->size == entry.size && node_->modified == entry.modified;
  }

 private:
  const MemoryFileSystem& files_;
  NodePtr node_;
  std::size_t at_ = 0;
};

Result<std::unique_ptr<ReadableFile>> MemoryFileSystem::OpenToRead(const std::string& path) {
  if (auto error = Enter(Call::kReadContent, path)) return *error;
  auto node = Find(path);
  if (!node) return node.error();
  if ((*node)->kind == NodeKind::kFolder) return MakeError(ErrorKind::kIsAFolder);
  return Reader(std::move(*node));
}

std::unique_ptr<ReadableFile> MemoryFileSystem::Reader(NodePtr file) const {
  return std::make_unique<MemoryContent>(*this, std::move(file));
}

std::unique_ptr<Comparer> MemoryFileSystem::MakeComparer(const std::string&, const std::string&) {
  const auto open = [this](const Folder& folder, const Entry& file) {
    return OpenToRead(JoinPath(folder.path(), file.name, PathStyle::kPosix));
  };
  return std::make_unique<PairComparer>(open, copy_threads_.writers, 1);
}

}  // namespace platform::memory
