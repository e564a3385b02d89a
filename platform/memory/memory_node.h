#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

/// The tree inside MemoryFileSystem.
namespace platform::memory {

struct Node;
using NodePtr = std::shared_ptr<Node>;

enum class NodeKind { kFile, kFolder, kLink, kPipe };

struct Node {
  std::string name;
  NodeKind kind = NodeKind::kFile;
  std::vector<NodePtr> children;  ///< of a folder, in the order in which they were made
  std::string content;            ///< of a file; shorter than `size` when the file only claims its size
  std::int64_t size = 0;
  FileTime modified;
  Attributes attributes = 0;
  std::string destination;  ///< of a link: an absolute path
  bool is_mount_point = false;
  FileTime changed = {};     ///< when it came to be or was changed last; counts on with each change
  bool is_on_disk = true;    ///< whether a power cut leaves the content of the file
  bool is_given_up = false;  ///< its space may hold something else by now
};

/// Whether the last part of a path is followed when it is a link.
enum class LastLink { kFollow, kKeep };

/// A node and the path that leads to it without links.
struct Place {
  NodePtr node;
  std::string path;
};

/// The child of that name, or null.
NodePtr FindChild(const Node& folder, std::string_view name, bool ignore_case);

/// Walks `path` down from `root`. kNotFound, kNotAFolder, or kOther where links lead in a circle.
Result<Place> Walk(const NodePtr& root, std::string_view path, LastLink last, bool ignore_case);

/// The error of a kind with the number and text that Linux has for it.
Error MakeError(ErrorKind kind);

}  // namespace platform::memory
