#include "services/data_file.h"

#include "platform/path.h"

namespace services {

std::string GetDataFilePath(platform::Shell& shell, platform::FileSystem& files, const std::string& fileName,
                            const std::string& folderName) {
  const std::string folder = platform::FolderForm(shell.ApplicationDataFolder()) + folderName;
  static_cast<void>(files.CreateFolder(folder));
  return platform::JoinPath(folder, fileName);
}

void RemoveTemporaryFiles(platform::FileSystem& files, platform::Clock& clock, const std::string& folder) {
  constexpr std::int64_t kSecondsToReplace = 60;
  const auto listing = files.OpenFolder(folder);
  if (!listing) return;
  for (const platform::Entry& entry : (*listing)->entries()) {
    if (entry.kind != platform::EntryKind::kFile || !platform::IsTemporaryName(entry.name)) continue;
    const std::string path = platform::JoinPath(folder, entry.name);
    const auto changed = files.ChangedAt(path);
    const bool is_old = changed && clock.Now().seconds - changed->seconds > kSecondsToReplace;
    if (is_old) static_cast<void>(files.RemoveFile(path));
  }
}

}  // namespace services
