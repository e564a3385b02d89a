#include "platform/posix/copy/data_mover.h"

#include <unistd.h>

#include <cerrno>

#include "platform/posix/system_error.h"
#include "platform/posix/whole_file.h"

namespace platform::posix {
namespace {

// Small enough for a watcher to be asked many times a second, large enough for the calls not to count.
constexpr std::size_t kSystemBlock = std::size_t{4} * 1024 * 1024;

/// Why a read failed. What is wrong with the file's blocks, and nothing else, leaves its bytes missing.
Error ReadError() {
  Error error = LastError();
  if (error.kind == ErrorKind::kOther) error.kind = ErrorKind::kShort;
  return error;
}

}  // namespace

Status DataMover::MoveToEnd(std::int64_t expected) {
  if (fingerprint_ == nullptr && expected - moved_ > static_cast<std::int64_t>(block_.size())) {
    if (Status moved = MoveBySystem(expected); !moved) return moved;
  }
  return MoveByBlocks(expected);
}

/// Ends early where the system cannot or fails: what is wrong then, and of which side, the blocks tell.
Status DataMover::MoveBySystem(std::int64_t expected) {
  while (moved_ < expected) {
    if (!MayGoOn()) return ErrorOf(ECANCELED);
    const ssize_t length = copy_file_range(source_, nullptr, target_, nullptr, kSystemBlock, 0);
    if (length < 0 && errno == EINTR) continue;
    if (length <= 0) break;
    moved_ += length;
  }
  return Done{};
}

Status DataMover::MoveByBlocks(std::int64_t expected) {
  for (;;) {
    if ((moved_ == 0 || moved_ != expected) && !MayGoOn()) return ErrorOf(ECANCELED);
    const ssize_t length = read(source_, block_.data(), block_.size());
    if (length < 0 && errno == EINTR) continue;
    if (length < 0) return ReadError();
    if (length == 0) return Done{};
    const auto count = static_cast<std::size_t>(length);
    if (Status written = WriteAll(target_, block_.first(count)); !written) return written;
    if (fingerprint_ != nullptr) fingerprint_->Add(block_.first(count));
    moved_ += length;
    if (moved_ == expected) return Done{};
  }
}

}  // namespace platform::posix
