#pragma once

#include <cstdint>
#include <string>

#include "platform/result.h"
#include "platform/windows/handle.h"

namespace platform::windows {

/// What shows that a file was written to.
struct SourceState {
  std::int64_t written = 0;  ///< the time, in the system's steps of 100 ns
  std::int64_t size = 0;     ///< bytes
  bool operator==(const SourceState&) const = default;
};

/// The file that a copy is made of, open for reading.
class SourceFile {
 public:
  /// Follows a link. kInUse when another program keeps the file to itself. A file that was written to within
  /// the present tick of the system's clock (1/64 s) is opened when that is over: one more write in the same
  /// tick would leave its time as it is. Where the volume's times are coarser than that, is_fresh() tells.
  static Result<SourceFile> Open(const std::wstring& long_path, bool has_coarse_times);

  /// As the file was when it was opened, or when Refresh() was called last.
  const SourceState& state() const { return state_; }
  DWORD attributes() const { return attributes_; }
  Status Refresh();

  /// It was written to so shortly before it was opened that another write might leave its time as it is.
  bool is_fresh() const { return is_fresh_; }

  /// Whether the file has more than its bytes: further data streams, holes, encryption. Only the system's own
  /// copy carries these over.
  bool IsMoreThanBytes() const;

  /// Reads on; fewer bytes than asked for only at the file's end.
  Result<std::size_t> Read(char* buffer, std::size_t size);

  /// Where Read() goes on.
  Status GoTo(std::int64_t position);

 private:
  Status WaitForTick();

  FileHandle file_;
  SourceState state_;
  DWORD attributes_ = 0;
  bool is_fresh_ = false;
};

}  // namespace platform::windows
