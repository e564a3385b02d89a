#include "services/data_file.h"

#include "platform/path.h"

namespace services {

std::string GetDataFilePath(platform::Shell& shell, platform::FileSystem& files, const std::string& fileName,
                            const std::string& folderName) {
  const std::string folder = platform::FolderForm(shell.ApplicationDataFolder()) + folderName;
  static_cast<void>(files.CreateFolder(folder));
  return platform::JoinPath(folder, fileName);
}

}  // namespace services
