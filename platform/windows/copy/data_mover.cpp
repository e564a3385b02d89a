#include "platform/windows/copy/data_mover.h"

#include <algorithm>
#include <memory>

#include "platform/windows/system_error.h"

namespace platform::windows {
namespace {

/// Between two blocks the user may stop the run: about a tenth of a second on a slow stick.
constexpr std::int64_t kBlockSize = 1 << 20;

/// To where the source ends now.
Status MoveToEnd(SourceFile& source, TemporaryFile& copy, Progress& progress, std::int64_t& moved,
                 FingerprintTaker* fingerprint) {
  // One byte more than expected: a read that does not fill the block has met the end.
  const std::int64_t left = source.state().size - moved;
  const auto size = static_cast<std::size_t>(std::clamp<std::int64_t>(left + 1, 1, kBlockSize));
  const auto block = std::make_unique_for_overwrite<char[]>(size);
  for (;;) {
    if (!progress.MayGoOn(moved)) return SystemError(ERROR_CANCELLED);
    const auto got = source.Read(block.get(), size);
    if (!got) return got.error();
    if (Status written = copy.Write(block.get(), *got); !written) return written;
    if (fingerprint != nullptr) fingerprint->Add({block.get(), *got});
    moved += static_cast<std::int64_t>(*got);
    if (*got < size) return Done{};
  }
}

}  // namespace

Status MoveData(SourceFile& source, TemporaryFile& copy, Progress& progress, std::int64_t& moved,
                FingerprintTaker* fingerprint) {
  for (;;) {
    const std::int64_t before = moved;
    const std::int64_t length = source.state().size;
    if (Status done = MoveToEnd(source, copy, progress, moved, fingerprint); !done) return done;
    if (Status known = source.Refresh(); !known) return known;
    const std::int64_t size = source.state().size;
    if (size < length || moved > size) return SystemError(ERROR_HANDLE_EOF);
    if (moved == size) break;
    if (moved == before) return SystemError(ERROR_HANDLE_EOF);
  }
  return progress.MayGoOn(moved) ? Status(Done{}) : SystemError(ERROR_CANCELLED);
}

}  // namespace platform::windows
