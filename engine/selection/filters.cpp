#include "engine/selection/filters.h"

#include <algorithm>

#include "engine/selection/wildcard_match.h"
#include "platform/path.h"

namespace engine {
namespace {

std::string_view TrimSpaces(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::vector<std::string> SplitSkipFilepaths(std::string_view skip_filepaths) {
  std::vector<std::string> patterns;
  while (true) {
    const std::size_t comma = skip_filepaths.find(',');
    const std::string_view pattern = TrimSpaces(skip_filepaths.substr(0, comma));
    if (!pattern.empty()) patterns.emplace_back(pattern);
    if (comma == std::string_view::npos) return patterns;
    skip_filepaths.remove_prefix(comma + 1);
  }
}

std::vector<std::string> SkipPatterns(std::string_view skip_filepaths) {
  std::vector<std::string> patterns = SplitSkipFilepaths(skip_filepaths);
  for (std::string& pattern : patterns) pattern = NormaliseForMatch(pattern);
  return patterns;
}

bool FileMatchesExtension(std::string_view path, std::string_view pattern, bool without_extension) {
  if (pattern.empty()) return true;
  const std::string_view name = platform::NameOf(path);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return without_extension;
  return WildcardMatch(name.substr(dot + 1), pattern, false);
}

bool PathMatchesSkipFilepaths(std::string_view path, const std::vector<std::string>& patterns) {
  if (patterns.empty()) return false;
  const std::string normalised = NormaliseForMatch(path);
  return std::any_of(patterns.begin(), patterns.end(), [&](const std::string& pattern) {
    return normalised.find(pattern) != std::string::npos;
  });
}

bool PassesFilters(const Filters& filters, const std::string& folder, const platform::Entry& file) {
  if (!FileMatchesExtension(file.name, filters.extension, false)) return false;
  if (filters.modified_since && file.modified && *file.modified < *filters.modified_since) return false;
  return filters.skip_patterns.empty() ||
         !PathMatchesSkipFilepaths(platform::JoinPath(folder, file.name), filters.skip_patterns);
}

}  // namespace engine
