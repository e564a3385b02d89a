#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/file_time.h"

namespace engine {

/// The filters of a setup in the form that is applied to every file.
struct Filters {
  std::string extension;                             ///< empty: all
  std::vector<std::string> skip_patterns;            ///< in the form of NormaliseForMatch()
  std::optional<platform::FileTime> modified_since;  ///< earliest time of modification that passes
};

/// `SkipFilepaths` cut at its commas: spaces around a pattern are dropped, empty patterns too.
std::vector<std::string> SplitSkipFilepaths(std::string_view skip_filepaths);

/// The same, each in the form of NormaliseForMatch().
std::vector<std::string> SkipPatterns(std::string_view skip_filepaths);

/// Whether the extension of a path (after the last "." of its last part) fits a pattern, without regard to
/// case. An empty pattern fits everything; a path without extension gives `without_extension`.
bool FileMatchesExtension(std::string_view path, std::string_view pattern, bool without_extension);

/// Whether one of the patterns occurs anywhere in the path.
bool PathMatchesSkipFilepaths(std::string_view path, const std::vector<std::string>& patterns);

/// Whether a file of a source folder passes all filters. Only the file's own time of modification is held
/// against the limit; a time that cannot be read passes.
bool PassesFilters(const Filters& filters, const std::string& folder, const platform::Entry& file);

}  // namespace engine
