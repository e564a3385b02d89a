#include "platform/path.h"

#include <algorithm>

#include "base/ascii_case.h"

namespace platform {
namespace {

std::size_t RootLength(std::string_view path, PathStyle style) {
  if (style == PathStyle::kPosix) return path.starts_with('/') ? 1 : 0;
  if (path.size() >= 3 && path[1] == ':' && IsSeparator(path[2], style)) return 3;
  return !path.empty() && IsSeparator(path[0], style) ? 1 : 0;
}

std::size_t LastSeparator(std::string_view path, PathStyle style) {
  for (std::size_t i = path.size(); i > 0; --i) {
    if (IsSeparator(path[i - 1], style)) return i - 1;
  }
  return std::string_view::npos;
}

bool IsDeviceName(std::string_view name) {
  std::string stem = base::LowerAscii(name.substr(0, name.find('.')));
  stem.erase(stem.find_last_not_of(' ') + 1);
  const bool numbered = stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt"));
  return stem == "con" || stem == "prn" || stem == "aux" || stem == "nul" ||
         (numbered && stem[3] >= '1' && stem[3] <= '9');
}

}  // namespace

PathStyle NativePathStyle() {
#ifdef QV_WINDOWS_PATHS
  return PathStyle::kWindows;
#else
  return PathStyle::kPosix;
#endif
}

char Separator(PathStyle style) { return style == PathStyle::kWindows ? '\\' : '/'; }

bool IsSeparator(char c, PathStyle style) { return c == '/' || (c == '\\' && style == PathStyle::kWindows); }

std::string_view AfterRoot(std::string_view path, PathStyle style) {
  return path.substr(RootLength(path, style));
}

std::string JoinPath(std::string_view folder, std::string_view name, PathStyle style) {
  while (!name.empty() && !folder.empty() && IsSeparator(name.front(), style)) name.remove_prefix(1);
  if (folder.empty() || name.empty()) return std::string(folder.empty() ? name : folder);
  std::string result = FolderForm(folder, style);
  result += name;
  return result;
}

bool IsPlainName(std::string_view name, PathStyle style) {
  return !name.empty() && name != "." && name != ".." &&
         std::none_of(name.begin(), name.end(),
                      [style](char c) { return c == '\0' || IsSeparator(c, style); });
}

std::string_view NameOf(std::string_view path, PathStyle style) {
  const std::size_t at = LastSeparator(path, style);
  return at == std::string_view::npos ? path : path.substr(at + 1);
}

std::string ParentOf(std::string_view path, PathStyle style) {
  const std::size_t at = LastSeparator(path, style);
  if (at == std::string_view::npos) return {};
  const std::size_t root = RootLength(path, style);
  return std::string(path.substr(0, at < root ? root : at));
}

std::optional<std::string> FindAbove(std::string_view path,
                                     const std::function<bool(const std::string& folder)>& is_wanted) {
  std::string below(path);
  for (std::string at = ParentOf(below); at.size() < below.size(); at = ParentOf(at)) {
    if (is_wanted(at)) return at;
    below = at;
  }
  return std::nullopt;
}

std::string FolderForm(std::string_view path, PathStyle style) {
  while (!path.empty() && IsSeparator(path.back(), style)) path.remove_suffix(1);
  std::string result(path);
  result += Separator(style);
  return result;
}

std::string WithoutTrailingSeparators(std::string_view folder, PathStyle style) {
  const std::size_t root = RootLength(folder, style);
  while (folder.size() > root && IsSeparator(folder.back(), style)) folder.remove_suffix(1);
  return std::string(folder);
}

std::string TypedFolderName(std::string_view typed, PathStyle style) {
  const auto may_end_it = [style](char c) {
    return !IsSeparator(c, style) && (style == PathStyle::kPosix || (c != ' ' && c != '.'));
  };
  while (!typed.empty() && IsSeparator(typed.front(), style)) typed.remove_prefix(1);
  while (!typed.empty() && !may_end_it(typed.back())) typed.remove_suffix(1);
  return std::string(typed);
}

NameFault FaultOf(std::string_view name, PathStyle style) {
  if (!IsPlainName(name, style)) return NameFault::kPath;
  if (style == PathStyle::kPosix) return NameFault::kNone;
  if (IsDeviceName(name)) return NameFault::kReserved;
  const bool allowed = std::ranges::none_of(name, [](char c) {
    return (c >= 0 && c < ' ') || std::string_view("<>:\"|?*").find(c) != std::string_view::npos;
  });
  return allowed ? NameFault::kNone : NameFault::kCharacter;
}

bool IsSpecified(std::string_view folder, PathStyle style) {
  return style == PathStyle::kWindows ? folder.size() >= 3 : !folder.empty();
}

bool IsDiskRoot(std::string_view folder, PathStyle style) {
  return style == PathStyle::kWindows ? folder.size() == 3 : folder == "/";
}

bool IsInside(std::string_view path, std::string_view folder, PathStyle style) {
  if (!path.starts_with(folder)) return false;
  if (path.size() == folder.size() || folder.empty()) return true;
  return IsSeparator(folder.back(), style) || IsSeparator(path[folder.size()], style);
}

}  // namespace platform
