#pragma once

#include <string>

#include "engine/tools.h"

namespace engine {

/// The beginning of every line about a single file or folder below a folder's head line.
inline constexpr const char* kLineIndent = "      ";

/// A line that names a file or folder: the indent, a numbered lead ("Not copied:"), the path.
std::string NoticeLine(const Tools& tools, int lead_text, const std::string& path);

/// The same, then why in plain words and what to do about it, and the system's code in parentheses where
/// there is one.
std::string FailureLine(const Tools& tools, int lead_text, const std::string& path,
                        const platform::Error& error);

/// The same for a folder that could not be listed.
std::string FolderFailureLine(const Tools& tools, const std::string& path, const platform::Error& error);

/// The same for something that was not done because its target folder could not be had.
std::string TargetFailureLine(const Tools& tools, int lead_text, const std::string& path,
                              const platform::Error& error);

}  // namespace engine
