#pragma once

#include <sys/types.h>

#include <memory>
#include <vector>

#include "platform/file_system.h"
#include "platform/posix/posix_folder.h"
#include "platform/posix/read_ahead.h"

namespace platform::posix {

/// Copies files from one open folder to another, each as one transaction; see FileSystem::CopyFile().
class FileCopier {
 public:
  /// Asks the system for the process's file mode mask, by setting it for a moment.
  FileCopier();

  /// See FileSystem::ExpectCopies().
  void Expect(const PosixFolder& source, const std::vector<const Entry*>& files) {
    read_ahead_.Expect(source, files);
  }

  Result<CopyOutcome> Copy(const PosixFolder& source, const Entry& file, PosixFolder& target, TargetName name,
                           const CopyWatcher& watcher);

 private:
  std::unique_ptr<char[]> block_;
  mode_t mask_;
  ReadAhead read_ahead_;
};

}  // namespace platform::posix
