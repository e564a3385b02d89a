#include "app/folder_facts.h"

#include "base/ascii_case.h"

namespace app {
namespace {

int ErrorNumber(platform::ErrorKind kind) {
  switch (kind) {
    case platform::ErrorKind::kAccessDenied:
      return 70;
    case platform::ErrorKind::kNotFound:
    case platform::ErrorKind::kNotAFolder:
      return 76;
    default:
      return -1;
  }
}

}  // namespace

bool IsRecycleBin(const std::string& name) { return base::LowerAscii(name) == "$recycle.bin"; }

FolderContent ContentOf(platform::FileSystem& files, const std::string& folder) {
  FolderContent content;
  const auto listing = files.OpenFolder(folder);
  if (!listing) {
    content.error = ErrorNumber(listing.error().kind);
    return content;
  }
  for (const platform::Entry& entry : (*listing)->entries()) {
    if (entry.kind == platform::EntryKind::kFile) ++content.files;
    const bool is_folder = entry.kind == platform::EntryKind::kFolder;
    if (is_folder && !IsRecycleBin(entry.name)) ++content.subfolders;
  }
  return content;
}

bool IsFolderEmpty(platform::FileSystem& files, const std::string& folder) {
  const auto listing = files.OpenFolder(folder);
  return !listing || (*listing)->entries().empty();
}

}  // namespace app
