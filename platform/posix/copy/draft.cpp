#include "platform/posix/copy/draft.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <optional>

#include "platform/posix/attributes/dos_bits.h"
#include "platform/posix/copy/data_mover.h"
#include "platform/posix/listing/file_facts.h"
#include "platform/posix/listing/readable_file.h"
#include "platform/posix/system_error.h"
#include "platform/read_back.h"

namespace platform::posix {
namespace {

constexpr std::size_t kBlockSize = std::size_t{256} * 1024;
constexpr mode_t kPermissions = S_IRWXU | S_IRWXG | S_IRWXO;

/// One for each thread.
std::span<char> Block() {
  thread_local const std::unique_ptr<char[]> block(new char[kBlockSize]);
  return {block.get(), kBlockSize};
}

Error ShortError() { return {ErrorKind::kShort, EIO, "The size of the file and its bytes do not match."}; }

/// Moves all data and leaves in source.facts what the source is at the end. A file may grow meanwhile.
Status MoveData(DataMover& mover, SourceFile& source) {
  struct stat& facts = source.facts;
  for (;;) {
    const std::int64_t before = mover.moved();
    const std::int64_t length = facts.st_size;
    if (Status moved = mover.MoveToEnd(length); !moved) return moved;
    if (fstat(source.handle.get(), &facts) != 0) return LastError();
    if (facts.st_size < length || mover.moved() > facts.st_size) return ShortError();
    if (mover.moved() == facts.st_size) return Done{};
    if (mover.moved() == before) return ShortError();
  }
}

bool Differ(const struct stat& a, const struct stat& b) {
  return a.st_size != b.st_size || ModifiedOf(a) != ModifiedOf(b);
}

Status CarryTime(int target, const struct stat& facts, bool changed) {
  struct timespec times[2] = {{0, UTIME_OMIT}, facts.st_mtim};
  if (changed) times[1].tv_sec -= kEarlierWhenChanged.count();
  if (futimens(target, times) != 0) return LastError();
  return Done{};
}

}  // namespace

FileDescriptor PosixDraft::OpenFile() const {
  return OpenListed(static_cast<const PosixFolder&>(*order_.source), *order_.file);
}

void PosixDraft::Prefetch() {
  prefetched_ = OpenFile();
  if (prefetched_) PrefetchStart(prefetched_.get());
}

Result<CopyOutcome> PosixDraft::Write(const CopyProgress& watcher) {
  auto source = ExamineSource(prefetched_ ? std::move(prefetched_) : OpenFile(), setting_.source_dos_bits);
  if (!source) return source.error();

  const mode_t mode = (source->facts.st_mode & kPermissions) | S_IWUSR;
  if (const Status created = file_.Create(target().handle(), mode); !created) return created.error();

  const struct stat before = source->facts;
  std::optional<FingerprintTaker> fingerprint;
  if (order_.read_back) fingerprint.emplace();
  DataMover mover(source->handle.get(), file_.handle(), Block(), watcher,
                  fingerprint ? &*fingerprint : nullptr);
  if (const Status moved = MoveData(mover, *source); !moved) return moved.error();
  if (watcher && mover.moved() > 0 && !watcher(mover.moved())) return ErrorOf(ECANCELED);
  if (fingerprint) written_ = fingerprint->Taken();

  CopyOutcome outcome{mover.moved(), source->attributes, 0,
                      source->is_fresh || Differ(before, source->facts)};
  const bool is_system = (source->attributes & kSystem) != 0;
  if (is_system && WriteDosBits(file_.handle(), setting_.dos_bits, kSystem))
    outcome.target_attributes = kSystem;
  // A volume without permissions refuses this, and the copy is whole all the same.
  if ((mode & setting_.mask) != 0) static_cast<void>(fchmod(file_.handle(), mode));
  if (const Status carried = CarryTime(file_.handle(), source->facts, outcome.changed); !carried)
    return carried.error();
  if (setting_.target == VolumeKind::kServed) {
    if (const Status flushed = file_.Flush(); !flushed) return flushed.error();
  }
  if (setting_.target == VolumeKind::kServedDisk) return outcome;
  if (const Status closed = file_.Close(); !closed) return closed.error();
  return outcome;
}

Status PosixDraft::ReadBack(const CopyProgress& watcher) {
  const auto copy = OpenToReadBack(target().handle(), file_.temporary_name());
  return copy ? platform::ReadBack(**copy, written_, watcher) : NotAsWritten(copy.error());
}

Status PosixDraft::Publish() {
  if (setting_.target == VolumeKind::kUnordered && order_.name == TargetName::kTaken) {
    replaced_.Reset(openat(target().handle(), order_.file->name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
  }
  return file_.Publish(order_.file->name, order_.name);
}

}  // namespace platform::posix
