#include "engine/target/run_lock.h"

#include <cstdint>
#include <utility>

#include "base/utf8.h"
#include "engine/own_names.h"
#include "platform/path.h"

namespace engine {
namespace {

/// A name that is the same for every spelling of a path (FNV-1a).
std::string NameFor(const Tools& tools, const std::string& target) {
  const auto real = tools.files.RealPath(target);
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char letter : tools.files.NameKey(real ? *real : target))
    hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
  return kRunLock + std::to_string(hash);
}

bool Take(const Tools& tools, const std::string& path, RunLock& run) {
  auto lock = tools.files.Lock(path, tools.who);
  if (lock) {
    run.lock = std::move(*lock);
    return true;
  }
  run.is_taken = lock.error().kind == platform::ErrorKind::kInUse;
  if (run.is_taken) run.holder = base::utf8::Printable(lock.error().text);
  return run.is_taken;
}

void LookAbove(const Tools& tools, const std::string& target, RunLock& run) {
  const auto real = tools.files.RealPath(target);
  std::optional<std::string> holder;
  const auto above = platform::FindAbove(real ? *real : target, [&](const std::string& folder) {
    holder = HolderOf(tools, folder);
    return holder.has_value();
  });
  if (!above) return;
  run.is_taken = true;
  run.holder = *holder;
  run.above = *above;
}

}  // namespace

/// First the lock and then the look: of two that begin at the same time one sees the other.
RunLock LockTarget(const Tools& tools, const std::string& target) {
  RunLock run;
  if (!Take(tools, platform::JoinPath(target, kRunLock), run) && !tools.lock_folder.empty())
    Take(tools, platform::JoinPath(tools.lock_folder, NameFor(tools, target)), run);
  if (!run.is_taken) LookAbove(tools, target, run);
  return run;
}

std::optional<std::string> HolderOf(const Tools& tools, const std::string& folder) {
  const std::string path = platform::JoinPath(folder, kRunLock);
  RunLock run;
  if (!tools.files.Stat(path)) return std::nullopt;
  return Take(tools, path, run) && run.is_taken ? std::optional(run.holder) : std::nullopt;
}

}  // namespace engine
