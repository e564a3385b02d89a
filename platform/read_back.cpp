#include "platform/read_back.h"

#include <array>
#include <memory>

namespace platform {
namespace {

struct alignas(4096) Block {
  std::array<char, std::size_t{1} << 20> bytes;
};

/// One for each thread.
std::span<char> Room() {
  thread_local const std::unique_ptr<Block> block(new Block);
  return block->bytes;
}

}  // namespace

Error NotAsWritten(const Error& why) { return {ErrorKind::kNotAsWritten, why.code, why.text}; }

Status ReadBack(ReadableFile& copy, const Fingerprint& written, const CopyProgress& watcher) {
  const std::span<char> room = Room();
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
