#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// The few rules on paths that differ between systems, all of them in one place. Text rules only: nothing
/// here looks at a disk.
namespace platform {

/// The rules of one system.
enum class PathStyle { kWindows, kPosix };

/// The style of the system that the program runs on.
PathStyle NativePathStyle();

/// "\" or "/".
char Separator(PathStyle style = NativePathStyle());

/// Whether the character parts folders in a path: "\" and "/" on Windows, "/" on Linux.
bool IsSeparator(char c, PathStyle style = NativePathStyle());

/// What follows the root ("C:\", "/"); the whole path when it has none.
std::string_view AfterRoot(std::string_view path, PathStyle style = NativePathStyle());

/// Folder and name with exactly one separator between them. An empty folder or name gives the other one
/// alone.
std::string JoinPath(std::string_view folder, std::string_view name, PathStyle style = NativePathStyle());

/// Whether a text can be the name of one file or folder: not empty, neither "." nor "..", without separators
/// and zeros.
bool IsPlainName(std::string_view name, PathStyle style = NativePathStyle());

/// The part after the last separator; the whole path when it has none.
std::string_view NameOf(std::string_view path, PathStyle style = NativePathStyle());

/// The path without its name and the separator before it; a root stays a root ("C:\a" gives "C:\", "/a" gives
/// "/").
std::string ParentOf(std::string_view path, PathStyle style = NativePathStyle());

/// The nearest of the folders above a path, up to the root, of which `is_wanted`.
std::optional<std::string> FindAbove(std::string_view path,
                                     const std::function<bool(const std::string& folder)>& is_wanted);

/// The path with one separator at its end.
std::string FolderForm(std::string_view path, PathStyle style = NativePathStyle());

/// The folder without separators at its end; a root ("C:\", "/") keeps its one.
std::string WithoutTrailingSeparators(std::string_view folder, PathStyle style = NativePathStyle());

/// A new folder's name as somebody types it: without separators at its ends, and on Windows without spaces
/// and dots at its end, with which Explorer could neither open nor delete the folder.
std::string TypedFolderName(std::string_view typed, PathStyle style = NativePathStyle());

/// Why no new folder can have a name as it is typed.
enum class NameFault {
  kNone,
  kPath,       ///< a path, "." or ".."
  kReserved,   ///< stands for a device on Windows, with an extension, too
  kCharacter,  ///< a character that Windows does not allow in names
};
NameFault FaultOf(std::string_view name, PathStyle style = NativePathStyle());

/// Whether a folder text counts as chosen: three characters or more on Windows ("E:\"), not empty on Linux.
bool IsSpecified(std::string_view folder, PathStyle style = NativePathStyle());

/// Whether a folder text names a whole disk: exactly three characters on Windows, "/" on Linux.
bool IsDiskRoot(std::string_view folder, PathStyle style = NativePathStyle());

/// Whether `path` is `folder` or is somewhere below it, compared letter by letter; both without a trailing
/// separator but for a root.
bool IsInside(std::string_view path, std::string_view folder, PathStyle style = NativePathStyle());

}  // namespace platform
