#pragma once

#include <cstdint>

namespace app {

/// The four operations, with the codes that `CurrentOperation` holds.
enum class Operation : std::int16_t {
  kListIncludedSubfolders = 1,
  kCheckBackupState = 2,
  kBackupAllFiles = 3,
  kBackupModifiedFiles = 4,
};

constexpr bool IsListOperation(Operation operation) {
  return operation == Operation::kListIncludedSubfolders;
}

constexpr bool IsCopyOperation(Operation operation) {
  return operation == Operation::kBackupAllFiles || operation == Operation::kBackupModifiedFiles;
}

}  // namespace app
