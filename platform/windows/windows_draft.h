#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/windows/source_file.h"
#include "platform/windows/temporary_file.h"

namespace platform::windows {

/// One copy as a transaction, see FileSystem::CopyFile(). Most files go block by block through one handle,
/// from the temporary file's creation to its final name. Big files, and those that have more than their
/// bytes, are left to the system's own copy, which knows shortcuts (copying inside a server, sharing blocks
/// on one volume).
class FileCopier {
 public:
  /// All paths are in the long form; the folder's ends in a separator. `listed_size` is what the listing
  /// said.
  Result<CopyOutcome> Copy(const std::wstring& source_path, std::int64_t listed_size,
                           const std::wstring& target_folder, const std::wstring& target_name,
                           TargetName listed, const CopyWatcher& watcher);

 private:
  Result<TemporaryFile> CopyBlocks(SourceFile& source, const std::wstring& target_folder,
                                   const CopyWatcher& watcher, std::int64_t& bytes);

  std::unique_ptr<char[]> buffer_;  ///< kept from file to file
};

}  // namespace platform::windows
