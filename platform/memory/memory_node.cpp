#include "platform/memory/memory_node.h"

#include <deque>

#include "base/ascii_case.h"
#include "base/utf8.h"

namespace platform::memory {
namespace {

constexpr int kMaxLinks = 40;

/// Puts the parts of `path` before what `parts` holds.
void Prepend(std::string_view path, std::deque<std::string>& parts) {
  std::size_t end = path.size();
  while (end > 0) {
    const std::size_t slash = path.rfind('/', end - 1);
    const std::size_t start = slash == std::string_view::npos ? 0 : slash + 1;
    if (start < end) parts.emplace_front(path.substr(start, end - start));
    end = slash == std::string_view::npos ? 0 : slash;
  }
}

Place PlaceOf(const std::vector<NodePtr>& trail) {
  std::string path;
  for (std::size_t i = 1; i < trail.size(); ++i) path += '/' + trail[i]->name;
  return {trail.back(), path.empty() ? "/" : path};
}

}  // namespace

std::string FoldCase(std::string_view name) { return base::LowerAscii(name); }

std::string FoldMuch(std::string_view name) {
  std::string folded = base::utf8::ToLower(name.substr(0, name.find_last_not_of(". ") + 1));
  constexpr std::pair<std::string_view, std::string_view> kApart[] = {{"e\u0301", "\u00E9"},
                                                                      {"u\u0308", "\u00FC"}};
  for (const auto& [apart, whole] : kApart) {
    for (std::size_t at = folded.find(apart); at != std::string::npos; at = folded.find(apart))
      folded.replace(at, apart.size(), whole);
  }
  return folded;
}

NodePtr FindChild(const Node& folder, std::string_view name, Folding folding) {
  if (folding == nullptr) folding = folder.folding;
  const std::string wanted = folding != nullptr ? folding(name) : std::string();
  for (const NodePtr& child : folder.children) {
    if (child->name == name) return child;
    if (folding != nullptr && folding(child->name) == wanted) return child;
  }
  return nullptr;
}

Result<Place> Walk(const NodePtr& root, std::string_view path, LastLink last, Folding folding) {
  std::vector<NodePtr> trail{root};
  std::deque<std::string> parts;
  Prepend(path, parts);
  int links = 0;
  while (!parts.empty()) {
    const std::string part = parts.front();
    parts.pop_front();
    if (trail.back()->kind != NodeKind::kFolder) return MakeError(ErrorKind::kNotAFolder);
    if (part == ".") continue;
    if (part == "..") {
      if (trail.size() > 1) trail.pop_back();
      continue;
    }
    NodePtr child = FindChild(*trail.back(), part, folding);
    if (!child) return MakeError(ErrorKind::kNotFound);
    if (child->kind == NodeKind::kLink && (last == LastLink::kFollow || !parts.empty())) {
      if (++links > kMaxLinks) return MakeError(ErrorKind::kOther);
      Prepend(child->destination, parts);
      trail.resize(1);
    } else {
      trail.push_back(std::move(child));
    }
  }
  return PlaceOf(trail);
}

Error MakeError(ErrorKind kind) {
  switch (kind) {
    case ErrorKind::kNotFound:
      return {kind, 2, "No such file or directory"};
    case ErrorKind::kAccessDenied:
      return {kind, 13, "Permission denied"};
    case ErrorKind::kReadOnlyMedium:
      return {kind, 30, "Read-only file system"};
    case ErrorKind::kDiskFull:
      return {kind, 28, "No space left on device"};
    case ErrorKind::kAlreadyExists:
    case ErrorKind::kNameTaken:
      return {kind, 17, "File exists"};
    case ErrorKind::kNotAFolder:
      return {kind, 20, "Not a directory"};
    case ErrorKind::kIsAFolder:
      return {kind, 21, "Is a directory"};
    case ErrorKind::kInUse:
      return {kind, 26, "Text file busy"};
    case ErrorKind::kBadName:
      return {kind, 36, "File name too long"};
    case ErrorKind::kTooLarge:
      return {kind, 27, "File too large"};
    case ErrorKind::kForeignLink:
    case ErrorKind::kNotAsWritten:
      return {kind, 0, {}};
    case ErrorKind::kShort:
      return {kind, 0, "The file ended early"};
    case ErrorKind::kDamaged:
      return {kind, 117, "Structure needs cleaning"};
    case ErrorKind::kTooManyOpen:
      return {kind, 24, "Too many open files"};
    case ErrorKind::kCancelled:
      return {kind, 125, "Operation canceled"};
    case ErrorKind::kOther:
      break;
  }
  return {ErrorKind::kOther, 40, "Too many levels of symbolic links"};
}

}  // namespace platform::memory
