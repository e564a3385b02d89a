#include "platform/windows/long_path.h"

#include <algorithm>
#include <vector>

#include "base/ascii_case.h"
#include "base/utf8.h"
#include "base/wide_text.h"
#include "platform/path.h"

namespace platform::windows {
namespace {

constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::wstring_view kLongServerPrefix = L"\\\\?\\UNC\\";

bool IsSlash(char c) { return IsSeparator(c, PathStyle::kWindows); }

bool IsLetter(char c) { return base::LowerAscii(c) >= 'a' && base::LowerAscii(c) <= 'z'; }

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && IsLetter(path[0]) && path[1] == ':' && (path.size() == 2 || IsSlash(path[2]));
}

bool HasServer(std::string_view path) {
  return path.size() > 2 && IsSlash(path[0]) && IsSlash(path[1]) && !IsSlash(path[2]);
}

/// "\\?\..." and "\\.\...".
bool IsSystemForm(std::string_view path) {
  return HasServer(path) && path.size() >= 4 && (path[2] == '?' || path[2] == '.') && IsSlash(path[3]);
}

/// The names in a path from `path` on; the first `fixed` of them are a root that ".." does not leave.
std::vector<std::string_view> NamesIn(std::string_view path, std::size_t fixed) {
  std::vector<std::string_view> names;
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t end = std::min(path.find_first_of("\\/", begin), path.size());
    const std::string_view name = path.substr(begin, end - begin);
    if (name == "..") {
      if (names.size() > fixed) names.pop_back();
    } else if (!name.empty() && name != ".") {
      names.push_back(name);
    }
    begin = end + 1;
  }
  return names;
}

std::wstring Join(std::wstring_view root, const std::vector<std::string_view>& names) {
  std::wstring result(root);
  for (const std::string_view name : names) {
    if (result.back() != L'\\') result += L'\\';
    result += base::Widen(name);
  }
  return result;
}

}  // namespace

std::wstring LongPath(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) {
    std::string refused(path);
    std::ranges::replace(refused, '\0', '|');
    return LongPath(refused);
  }
  if (IsSystemForm(path)) return base::Widen(path);
  if (HasDrive(path)) {
    const std::wstring root = std::wstring(kLongPrefix) + base::Widen(path.substr(0, 2)) + L'\\';
    return Join(root, NamesIn(path.substr(2), 0));
  }
  if (HasServer(path)) return Join(kLongServerPrefix, NamesIn(path, 2));
  return base::Widen(path);
}

std::wstring LongFolder(std::string_view path) {
  std::wstring result = LongPath(path);
  if (!result.empty() && result.back() != L'\\') result += L'\\';
  return result;
}

std::string PlainPath(std::wstring_view long_path) {
  if (long_path.starts_with(kLongServerPrefix)) {
    return "\\\\" + base::Narrow(long_path.substr(kLongServerPrefix.size()));
  }
  const bool has_drive = long_path.size() > 5 && long_path[5] == L':';
  if (long_path.starts_with(kLongPrefix) && has_drive)
    return base::Narrow(long_path.substr(kLongPrefix.size()));
  return base::Narrow(long_path);
}

std::string DriveOfPath(std::string_view path) {
  if (IsSystemForm(path)) {
    const std::string plain = PlainPath(base::Widen(path));
    return IsSystemForm(plain) ? std::string() : DriveOfPath(plain);
  }
  if (HasDrive(path)) return base::utf8::ToUpper(path.substr(0, 2));
  if (!HasServer(path)) return {};
  std::string result = "\\";
  const auto names = NamesIn(path, 2);
  for (std::size_t i = 0; i < names.size() && i < 2; ++i) result.append("\\").append(names[i]);
  return result;
}

}  // namespace platform::windows
