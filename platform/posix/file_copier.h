#pragma once

#include <sys/types.h>

#include <memory>
#include <span>

#include "platform/file_system.h"
#include "platform/posix/posix_folder.h"

namespace platform::posix {

/// Copies files from one open folder to another, each as one transaction; see FileSystem::CopyFile().
class FileCopier {
 public:
  /// Asks the system for the process's file mode mask, by setting it for a moment.
  FileCopier();

  Result<CopyOutcome> Copy(const PosixFolder& source, const Entry& file, PosixFolder& target,
                           const CopyWatcher& watcher);

 private:
  std::unique_ptr<char[]> block_;
  mode_t mask_;
};

}  // namespace platform::posix
