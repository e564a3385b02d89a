#include "app/select_subfolders/folder_facts.h"

#include <algorithm>

#include "base/ascii_case.h"
#include "platform/path.h"

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
    if (!is_folder || IsRecycleBin(entry.name)) continue;
    ++content.subfolders;
    content.subfolder_keys.insert(files.NameKey(entry.name));
  }
  return content;
}

bool IsDisk(platform::FileSystem& files, const std::string& folder) {
  const std::string plain = platform::WithoutTrailingSeparators(folder);
  return platform::IsDiskRoot(folder) || (platform::IsDiskRoot("/") && files.DriveOf(plain) == plain);
}

std::string AfterDisk(platform::FileSystem& files, const std::string& path) {
  const std::string drive = files.DriveOf(path);
  const bool by_mount_point = !drive.empty() && platform::IsInside(path, drive);
  return std::string(platform::AfterRoot(by_mount_point ? path.substr(drive.size()) : path));
}

bool IsFolderEmpty(platform::FileSystem& files, const std::string& folder) {
  const auto listing = files.OpenFolder(folder);
  if (!listing) return true;
  const auto counts = [](const platform::Entry& entry) {
    return entry.kind == platform::EntryKind::kFile || platform::IsFolder(entry.kind);
  };
  return std::ranges::none_of((*listing)->entries(), counts);
}

}  // namespace app
