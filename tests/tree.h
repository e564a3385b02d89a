#pragma once

#include <string>
#include <vector>

#include "platform/memory/memory_file_system.h"

/// Trees of a file system in memory, written as short texts.
namespace tree {

/// "/folder/" stands for a folder, "/file" for a file that holds "1", "/file=text" for one that holds the
/// text, "/link>/place" for a link. All files bear the same time, so it is their length that tells a file
/// from its copy.
inline void Add(platform::memory::MemoryFileSystem& files, const std::vector<std::string>& entries) {
  for (const std::string& entry : entries) {
    const std::size_t mark = entry.find_first_of("=>");
    const std::string path = entry.substr(0, mark);
    if (path.ends_with('/')) {
      files.AddFolder(path.substr(0, path.size() - 1));
    } else if (mark == std::string::npos) {
      files.AddFile(path, "1");
    } else if (entry[mark] == '=') {
      files.AddFile(path, entry.substr(mark + 1));
    } else {
      files.AddLink(path, entry.substr(mark + 1));
    }
  }
}

/// All files in a folder and below it, sorted, each with its content: "a=1 below/b=text".
inline std::string Below(platform::memory::MemoryFileSystem& files, const std::string& folder,
                         const std::string& prefix = {}) {
  std::string found;
  for (const std::string& name : files.NamesIn(folder)) {
    const std::string path = folder + "/" + name;
    const bool is_folder = files.Stat(path)->kind == platform::EntryKind::kFolder;
    const std::string part =
        is_folder ? Below(files, path, prefix + name + "/") : prefix + name + "=" + files.ContentOf(path);
    if (!found.empty() && !part.empty()) found += " ";
    found += part;
  }
  return found;
}

}  // namespace tree
