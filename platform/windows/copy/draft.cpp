#include "platform/windows/copy/draft.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "base/wide_text.h"
#include "platform/read_back.h"
#include "platform/windows/copy/copy_volume.h"
#include "platform/windows/copy/data_mover.h"
#include "platform/windows/copy/flushing.h"
#include "platform/windows/copy/system_copy.h"
#include "platform/windows/listing/listing.h"
#include "platform/windows/listing/readable_file.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"
#include "platform/windows/windows_time.h"

namespace platform::windows {
namespace {

/// From here on the system's copy is the faster one, or at least not slower.
constexpr std::int64_t kBigFile = 16 << 20;

// What every FAT and exFAT volume can hold, wherever it lies: they count from 1980 to 2107, after the clock
// on the wall.
constexpr std::int64_t kEarliestOnFat = 315'576'000;  // 1980-01-01 12:00
constexpr std::int64_t kLatestOnFat = 4'354'765'200;  // 2107-12-31 09:00

/// The nearest time that every volume can hold.
std::int64_t NearestOnFat(std::int64_t time) {
  const std::int64_t seconds = FromTicks(time).seconds;
  return time + (std::clamp(seconds, kEarliestOnFat, kLatestOnFat) - seconds) * kTicksPerSecond;
}

/// Where the system refuses the time, the nearest that a copy can have there takes its place.
bool SetBasicInfo(const FileHandle& copy, FILE_BASIC_INFO wanted) {
  const auto set = [&] {
    return ::SetFileInformationByHandle(copy.get(), FileBasicInfo, &wanted, sizeof wanted) != 0;
  };
  if (set()) return true;
  if (::GetLastError() != ERROR_INVALID_PARAMETER) return false;
  wanted.LastWriteTime.QuadPart = NearestOnFat(wanted.LastWriteTime.QuadPart);
  return set();
}

/// Modification time and attributes of the source: read-only and hidden are dropped, the rest stays as the
/// copy has it.
Result<Attributes> CarryOver(const SourceFile& source, const FileHandle& copy, bool changed) {
  auto info = BasicInfo(copy);
  if (!info) return info.error();
  const DWORD attributes =
      (info->FileAttributes & ~DWORD{kKnownAttributes}) | (source.attributes() & kSystem);
  FILE_BASIC_INFO wanted{};  // what is 0 stays as it is
  wanted.LastWriteTime.QuadPart = source.state().written;
  if (changed) wanted.LastWriteTime.QuadPart -= kEarlierWhenChanged.count() * kTicksPerSecond;
  if (attributes != info->FileAttributes) {
    wanted.FileAttributes = attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL;
  }
  if (!SetBasicInfo(copy, wanted)) return LastError();
  return Attributes{attributes & kKnownAttributes};
}

/// FAT says "disk full" to a file that is too large for it.
Error Explain(const Error& error, const std::wstring& folder, std::int64_t size) {
  const bool too_large = error.kind == ErrorKind::kDiskFull && size > kLargestOnFat && IsOnFat(folder);
  return too_large ? SystemError(ERROR_FILE_TOO_LARGE) : error;
}

}  // namespace

Result<CopyOutcome> WindowsDraft::Write(const CopyProgress& watcher) {
  const std::wstring path =
      static_cast<const WindowsFolder&>(*order_.source).long_path() + base::Widen(order_.file->name);
  auto source = SourceFile::Open(path, volume_.source_has_coarse_times());
  if (!source) return source.error();
  auto outcome = CopyFrom(*source, path, watcher);
  if (!outcome) {
    file_.reset();  // now, not with its group: the disk may be full
    return outcome;
  }
  if (const Status flushed = Flush(); !flushed) return flushed.error();
  return outcome;
}

Result<CopyOutcome> WindowsDraft::CopyFrom(SourceFile& source, const std::wstring& path,
                                           const CopyProgress& watcher) {
  const SourceState before = source.state();
  CopyOutcome outcome;
  if (const Status filled = Fill(source, path, watcher, outcome.bytes); !filled) return filled.error();
  outcome.changed = source.is_fresh() || source.state() != before;
  const auto attributes = CarryOver(source, file(), outcome.changed);
  if (!attributes) return attributes.error();
  outcome.source_attributes = source.attributes() & kKnownAttributes;
  outcome.target_attributes = *attributes;
  is_elsewhere_ = volume_.IsElsewhere(order_.target, file());
  return outcome;
}

Status WindowsDraft::Fill(SourceFile& source, const std::wstring& path, const CopyProgress& watcher,
                          std::int64_t& bytes) {
  Progress progress(watcher);
  const std::int64_t size = source.state().size;
  const bool is_big = size >= kBigFile && !order_.read_back && SystemCopyTellsProgress();
  const bool by_system = is_big || source.IsMoreThanBytes();
  auto copy = by_system ? CopyBySystem(path, target(), progress) : TemporaryFile::Create(target());
  if (!copy) return Explain(copy.error(), target(), size);
  file_.emplace(std::move(*copy));
  if (by_system) {
    const auto length = file_->GoToEnd();
    if (!length) return length.error();
    bytes = *length;
    if (Status there = source.GoTo(bytes); !there) return there;
  }
  FingerprintTaker fingerprint;
  const Status moved = MoveData(source, *file_, progress, bytes, order_.read_back ? &fingerprint : nullptr);
  if (!moved) return Explain(moved.error(), target(), size);
  if (!order_.read_back) return Done{};
  if (by_system) return TakeFingerprint(source, watcher, bytes);
  written_ = fingerprint.Taken();
  return Done{};
}

/// Of what the system has copied, which takes reading the source once more. One that changes meanwhile tells
/// nothing of its copy, which is dated so that it will be made anew.
Status WindowsDraft::TakeFingerprint(SourceFile& source, const CopyProgress& watcher, std::int64_t bytes) {
  constexpr std::size_t kBlock = std::size_t{1} << 20;
  const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
  const SourceState before = source.state();
  if (Status there = source.GoTo(0); !there) return there;
  FingerprintTaker fingerprint;
  for (std::size_t got = kBlock; got == kBlock;) {
    const auto read = source.Read(block.get(), kBlock);
    if (!read) return read.error();
    got = *read;
    fingerprint.Add({block.get(), got});
    if (watcher && !watcher(bytes)) return SystemError(ERROR_CANCELLED);
  }
  if (Status known = source.Refresh(); !known) return known;
  if (source.state() == before) written_ = fingerprint.Taken();
  return Done{};
}

Status WindowsDraft::Flush() {
  const DataFlush way = is_elsewhere_ ? DataFlush::kEachFully : volume_.data_flush();
  if (way == DataFlush::kVolume || way == DataFlush::kNever) return Done{};
  const Status flushed = way == DataFlush::kEachFully ? FlushFully(file()) : WriteOut(file());
  is_written_out_ = flushed.ok();
  return flushed;
}

Status WindowsDraft::ReadBack(const CopyProgress& watcher) {
  if (!written_) return Done{};
  const auto copy = OpenToReadBack(file_->path());
  return copy ? platform::ReadBack(**copy, *written_, watcher) : NotAsWritten(copy.error());
}

Status WindowsDraft::Publish() {
  const std::wstring path = target() + base::Widen(order_.file->name);
  if (Status published = file_->Publish(path, order_.name); !published) return published;
  if (volume_.names_are_ordered() && !is_elsewhere_) {
    file_->Close();
    return Done{};
  }
  file_->DateBirth();
  // Where the system could not rename through the handle.
  return file() ? Status(Done{}) : file_->Reopen(path);
}

}  // namespace platform::windows
