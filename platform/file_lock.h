#pragma once

namespace platform {

/// A lock that a program holds while this lives. The system releases it when the program dies.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

}  // namespace platform
