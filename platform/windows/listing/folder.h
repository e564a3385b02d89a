#pragma once

#include <string>
#include <utility>

#include "platform/file_system.h"
#include "platform/windows/listing/folder_listing.h"

namespace platform::windows {

/// A listed folder. It keeps its long form, so that the files in it need only their names appended, and no
/// handle: an open folder could not be renamed or removed by others on Windows.
class WindowsFolder : public Folder {
 public:
  WindowsFolder(std::string path, std::wstring long_path, FolderListing listing)
      : long_path_(std::move(long_path)) {
    path_ = std::move(path);
    entries_ = std::move(listing.entries);
    identity_ = listing.identity;
    is_link_ = listing.is_link;
  }

  /// Ends in a separator.
  const std::wstring& long_path() const { return long_path_; }

 private:
  std::wstring long_path_;
};

}  // namespace platform::windows
