#pragma once

#include <cstdint>
#include <string>

namespace app {

/// The four operations, with the codes that `CurrentOperation` holds.
enum class Operation : std::int16_t {
  kListIncludedSubfolders = 1,
  kCheckBackupState = 2,
  kBackupAllFiles = 3,
  kBackupModifiedFiles = 4,
};

/// As its button is called.
inline std::string OperationName(Operation operation) {
  switch (operation) {
    case Operation::kListIncludedSubfolders:
      return "List included subfolders";
    case Operation::kCheckBackupState:
      return "Check backup state";
    case Operation::kBackupAllFiles:
      return "Back up all files in setup";
    case Operation::kBackupModifiedFiles:
      break;
  }
  return "Back up new and modified";
}

constexpr bool IsListOperation(Operation operation) {
  return operation == Operation::kListIncludedSubfolders;
}

constexpr bool IsCopyOperation(Operation operation) {
  return operation == Operation::kBackupAllFiles || operation == Operation::kBackupModifiedFiles;
}

}  // namespace app
