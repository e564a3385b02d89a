#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "platform/result.h"

namespace platform::windows {

/// The files copied within the last 15 seconds, which the system may not have handed to the disk yet.
class RecentCopies {
 public:
  void Add(std::wstring long_path);

  /// Flushes them, the newest first and for about a second, and forgets them. A file that has gone meanwhile,
  /// or is in use, is passed over.
  Status Flush();

  void Forget() { copies_.clear(); }

 private:
  struct Copy {
    std::uint64_t when;  ///< milliseconds
    std::wstring path;
  };
  void ForgetOld(std::uint64_t now);

  std::deque<Copy> copies_;
};

/// Flushes the volume that holds the path; false when the user may not.
bool FlushVolume(const std::string& path);

}  // namespace platform::windows
