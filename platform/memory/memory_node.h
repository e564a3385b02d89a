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

/// What a volume compares instead of the names themselves; null: the names.
using Folding = std::string (*)(std::string_view name);

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
  bool is_foreign = false;        ///< belongs to another user
  bool has_other_places = false;  ///< is in another folder, too
  FileTime changed = {};          ///< when it came to be or was changed last; counts on with each change
  bool is_on_disk = true;         ///< whether a power cut leaves the content of the file
  Folding folding = nullptr;      ///< of a folder: how it compares names; new folders in it take it over
  bool is_given_up = false;       ///< its space may hold something else by now
};

/// Without regard to the case of ASCII letters.
std::string FoldCase(std::string_view name);

/// As a stick may do it: without regard to case, to dots and spaces at the end, and to whether an accent is a
/// character of its own (of some letters).
std::string FoldMuch(std::string_view name);

/// Whether the last part of a path is followed when it is a link.
enum class LastLink { kFollow, kKeep };

/// A node and the path that leads to it without links.
struct Place {
  NodePtr node;
  std::string path;
};

/// The child of that name, or null. `folding`: of the whole file system, if any.
NodePtr FindChild(const Node& folder, std::string_view name, Folding folding);

/// Walks `path` down from `root`. kNotFound, kNotAFolder, or kOther where links lead in a circle.
Result<Place> Walk(const NodePtr& root, std::string_view path, LastLink last, Folding folding);

/// The error of a kind with the number and text that Linux has for it.
Error MakeError(ErrorKind kind);

}  // namespace platform::memory
