#include "platform/posix/file_copier.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/posix/data_mover.h"
#include "platform/posix/dos_attributes.h"
#include "platform/posix/file_facts.h"
#include "platform/posix/posix_error.h"
#include "platform/posix/source_file.h"
#include "platform/posix/target_file.h"

namespace platform::posix {
namespace {

constexpr std::size_t kBlockSize = std::size_t{256} * 1024;
constexpr mode_t kPermissions = S_IRWXU | S_IRWXG | S_IRWXO;

mode_t FileModeMask() {
  const mode_t mask = umask(S_IWGRP | S_IWOTH);
  umask(mask);
  return mask;
}

Error ShortError() { return {ErrorKind::kShort, EIO, "The file ended before its length was read."}; }

/// Moves all data and leaves in source.facts what the source is at the end. A file whose length is not the
/// expected one is looked at anew, and so is one that took more than one read: it may have been written to
/// meanwhile.
Status MoveData(DataMover& mover, SourceFile& source) {
  struct stat& facts = source.facts;
  if (source.content)
    return mover.MoveFromMemory({source.content.get(), static_cast<std::size_t>(facts.st_size)});
  for (;;) {
    const std::int64_t before = mover.moved();
    if (Status moved = mover.MoveToEnd(facts.st_size); !moved) return moved;
    const bool is_done = mover.moved() == facts.st_size;
    if (is_done && mover.moved() <= static_cast<std::int64_t>(kBlockSize)) return Done{};
    if (fstat(source.handle.get(), &facts) != 0) return LastError();
    if (is_done) return Done{};
    if (mover.moved() >= facts.st_size) return Done{};
    if (mover.moved() == before) return ShortError();
  }
}

bool Differ(const struct stat& a, const struct stat& b) {
  return a.st_size != b.st_size || ModifiedOf(a) != ModifiedOf(b);
}

Status CarryTime(int target, const struct stat& facts, bool changed) {
  struct timespec times[2] = {{0, UTIME_OMIT}, facts.st_mtim};
  if (changed) times[1].tv_sec -= kEarlierWhenChanged;
  if (futimens(target, times) != 0) return LastError();
  return Done{};
}

}  // namespace

FileCopier::FileCopier() : block_(new char[kBlockSize]), mask_(FileModeMask()) {}

Result<CopyOutcome> FileCopier::Copy(const PosixFolder& source, const Entry& file, PosixFolder& target,
                                     TargetName name, const CopyWatcher& watcher) {
  auto ready = read_ahead_.Take(source, file.name);
  auto input = ready ? std::move(*ready) : OpenSource(source.handle(), file.name);
  if (!input) return input.error();

  const mode_t mode = (input->facts.st_mode & kPermissions) | S_IWUSR;
  TargetFile output;
  if (const Status created = output.Create(target, mode); !created) return created.error();

  const struct stat before = input->facts;
  DataMover mover(input->handle.get(), output.handle(), {block_.get(), kBlockSize}, watcher);
  if (const Status moved = MoveData(mover, *input); !moved) return moved.error();

  CopyOutcome outcome{mover.moved(), input->attributes, 0, Differ(before, input->facts)};
  const bool is_system = (input->attributes & kSystem) != 0;
  if (is_system && MarkNewFile(output.handle(), kSystem)) outcome.target_attributes = kSystem;
  // A volume without permissions refuses this, and the copy is whole all the same.
  if ((mode & mask_) != 0) static_cast<void>(fchmod(output.handle(), mode) == 0);
  if (const Status carried = CarryTime(output.handle(), input->facts, outcome.changed); !carried)
    return carried.error();
  if (name == TargetName::kTaken && output.NeedsWriteOut()) {
    const Status safe = DoMeanwhile([&output] { return output.WriteOut(); }, watcher, outcome.bytes);
    if (!safe) return safe.error();
  }
  if (const Status published = output.Publish(file.name, name); !published) return published.error();
  return outcome;
}

}  // namespace platform::posix
