#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include "platform/folder.h"
#include "platform/result.h"

/// What comparing files needs of a system. Everything here is called from many threads at a time, but for one
/// file one call at a time.
namespace platform {

/// A file, open for reading from its beginning to its end.
class ReadableFile {
 public:
  virtual ~ReadableFile() = default;

  /// May have the system begin to read the file, so that Read(), which comes soon, need not wait for the
  /// disk.
  virtual void Prefetch() {}

  /// Reads on. Fewer bytes than there is room for may come at any time, none only at the end.
  virtual Result<std::size_t> Read(std::span<char> room) = 0;

  /// Whether the file still has the size and the time of modification that its listing says.
  virtual bool IsAsListed(const Entry& entry) const = 0;
};

/// Opens a listed file, links followed.
using ContentOpener =
    std::function<Result<std::unique_ptr<ReadableFile>>(const Folder& folder, const Entry& file)>;

}  // namespace platform
