#pragma once

#include <cstdint>
#include <string>

#include "platform/file_system.h"

namespace engine {

/// What FileSizeOf() says of a file whose size it cannot tell or hold.
inline constexpr std::int32_t kLargestFileSize = 2'147'483'647;

/// A file's size in 32 bits; kLargestFileSize when it could not be read, is negative, or does not fit.
std::int32_t FileSizeOf(const platform::Entry& file);
std::int32_t FileSizeOf(std::int64_t bytes);

/// Whether a file's copy counts as outdated, by what the two folder listings say. Different lengths: yes.
/// Otherwise the times of modification decide, coarsely and without asking which file is newer: seconds, one
/// minute, and whole half hours up to eight hours within one month (time zones, daylight saving) are no
/// difference; an unreadable time is none either. Nor is it one when the target cannot hold so early or late
/// a time and has the nearest that it can.
bool FileTimesDiffer(const platform::Entry& source, const platform::Entry& target);

constexpr bool IsReadOnly(platform::Attributes attributes) { return (attributes & platform::kReadOnly) != 0; }
constexpr bool IsSystemFile(platform::Attributes attributes) { return (attributes & platform::kSystem) != 0; }

/// Attribute helpers on the file at a path; they write nothing when nothing would change.
/// Whether the file is writable afterwards, also when it was before.
bool ClearReadOnly(platform::FileSystem& files, const std::string& path);
/// Whether the file is a system file afterwards.
bool SetSystemFile(platform::FileSystem& files, const std::string& path);
/// Whether the file is neither read-only nor hidden afterwards.
bool ClearReadOnlyAndHidden(platform::FileSystem& files, const std::string& path);

}  // namespace engine
