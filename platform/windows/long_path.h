#pragma once

#include <string>
#include <string_view>

/// Windows takes paths of more than about 260 characters, and names that end in a dot or a space, only in a
/// form that begins with "\\?\" and is used as it is: no "/", no "..", no doubled separators
/// (learn.microsoft.com/windows/win32/fileio/naming-a-file).
namespace platform::windows {

/// The long form of an absolute path: "C:\a" gives "\\?\C:\a", "\\server\share\a" gives
/// "\\?\UNC\server\share\a", "c:" gives "\\?\c:\". Without a separator at its end, but for the root of a
/// drive. A path that is not absolute, and one that has the form already, stays as it is. A zero byte, at
/// which the system would cut the path, becomes a "|", for which it refuses it.
std::wstring LongPath(std::string_view path);

/// A folder's long form with one separator at its end, for names to be appended.
std::wstring LongFolder(std::string_view path);

/// The path as people write it.
std::string PlainPath(std::wstring_view long_path);

/// "E:" in upper case, "\\server\share", or nothing for a path that is not absolute.
std::string DriveOfPath(std::string_view path);

}  // namespace platform::windows
