#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace platform::windows {

/// A folder and what is in it.
struct FolderListing {
  std::vector<Entry> entries;
  std::optional<Identity> identity;
  bool is_link = false;  ///< there is a link at its path
};

/// Lists a folder, whose long form ends in a separator; see FileSystem::OpenFolder(). The folder is opened
/// for that, so that what is asked of it and what is listed are one folder's, and each file comes with its
/// number. Where the volume does not know such a listing, it is searched by its path.
Result<FolderListing> ListFolder(const std::wstring& folder, FollowLinks links);

}  // namespace platform::windows
