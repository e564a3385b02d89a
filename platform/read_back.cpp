#include "platform/read_back.h"

#include <algorithm>
#include <array>
#include <memory>

namespace platform {
namespace {

struct alignas(4096) Page {
  std::array<char, 4096> bytes;
};

constexpr std::int64_t kMostPages = 256;

}  // namespace

Error NotAsWritten(const Error& why) { return {ErrorKind::kNotAsWritten, why.code, why.text}; }

Status ReadBack(ReadableFile& copy, const Fingerprint& written, const CopyProgress& watcher) {
  // Kept by no thread: what a thread keeps is destroyed after its memory is gone, as mingw-w64 has it.
  const auto pages = static_cast<std::size_t>(std::min(written.bytes / 4096 + 1, kMostPages));
  const auto block = std::make_unique_for_overwrite<Page[]>(pages);
  const std::span<char> room(reinterpret_cast<char*>(block.get()), pages * sizeof(Page));
  FingerprintTaker read;
  const Error cancelled{ErrorKind::kCancelled, 0, {}};
  if (watcher && !watcher(0)) return cancelled;
  for (std::int64_t at = 0; at <= written.bytes;) {
    const auto got = copy.Read(room);
    if (!got) return NotAsWritten(got.error());
    if (*got == 0) break;
    read.Add(room.first(*got));
    at += static_cast<std::int64_t>(*got);
    if (watcher && !watcher(at)) return cancelled;
    if (*got < room.size() && at == written.bytes) break;
  }
  if (read.Taken() != written) return NotAsWritten({});
  return Done{};
}

}  // namespace platform
