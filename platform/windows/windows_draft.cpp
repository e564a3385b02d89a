#include "platform/windows/file_copier.h"

#include <utility>

#include "platform/windows/listing.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_copy.h"
#include "platform/windows/system_error.h"
#include "platform/windows/volume.h"
#include "platform/windows/windows_time.h"

namespace platform::windows {
namespace {

/// Between two blocks the user may stop the run: about a tenth of a second on a slow stick.
constexpr std::size_t kBlockSize = 1 << 20;

/// From here on the system's copy is the faster one, or at least not slower.
constexpr std::int64_t kBigFile = 16 << 20;

/// Modification time and attributes of the source: read-only and hidden are dropped, the rest stays as the
/// copy has it.
Result<Attributes> CarryOver(const FILE_BASIC_INFO& source, const TemporaryFile& copy, bool changed) {
  auto info = BasicInfo(copy.file());
  if (!info) return info.error();
  const DWORD attributes =
      (info->FileAttributes & ~DWORD{kKnownAttributes}) | (source.FileAttributes & kSystem);
  FILE_BASIC_INFO wanted{};  // what is 0 stays as it is
  wanted.LastWriteTime = source.LastWriteTime;
  if (changed) wanted.LastWriteTime.QuadPart -= kEarlierWhenChanged * kTicksPerSecond;
  if (attributes != info->FileAttributes) {
    wanted.FileAttributes = attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL;
  }
  if (!::SetFileInformationByHandle(copy.file().get(), FileBasicInfo, &wanted, sizeof wanted))
    return LastError();
  return Attributes{attributes & kKnownAttributes};
}

/// FAT says "disk full" to a file that is too large for it.
Error Explain(Error error, const std::wstring& folder, std::int64_t size) {
  const bool too_large = error.kind == ErrorKind::kDiskFull && size > kLargestOnFat && IsOnFat(folder);
  return too_large ? SystemError(ERROR_FILE_TOO_LARGE) : error;
}

}  // namespace

Result<TemporaryFile> FileCopier::CopyBlocks(SourceFile& source, const std::wstring& target_folder,
                                             const CopyWatcher& watcher, std::int64_t& bytes) {
  if (watcher && !watcher(0)) return SystemError(ERROR_CANCELLED);
  auto copy = TemporaryFile::Create(target_folder);
  if (!copy) return copy.error();
  if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(kBlockSize);
  for (;;) {
    const auto got = source.Read(buffer_.get(), kBlockSize);
    if (!got) return got.error();
    if (const Status written = copy->Write(buffer_.get(), *got); !written) return written.error();
    bytes += static_cast<std::int64_t>(*got);
    if (*got < kBlockSize) break;
    if (watcher && !watcher(bytes)) return SystemError(ERROR_CANCELLED);
  }
  if (const Status whole = copy->CheckLength(bytes); !whole) return whole.error();
  return copy;
}

Result<CopyOutcome> FileCopier::Copy(const std::wstring& source_path, std::int64_t listed_size,
                                     const std::wstring& target_folder, const std::wstring& target_name,
                                     TargetName listed, const CopyWatcher& watcher) {
  auto source = SourceFile::Open(source_path);
  if (!source) return source.error();
  CopyOutcome outcome;
  const bool by_system = listed_size >= kBigFile || source->IsMoreThanBytes();
  auto copy = by_system ? CopyBySystem(source_path, target_folder, watcher, outcome.bytes)
                        : CopyBlocks(*source, target_folder, watcher, outcome.bytes);
  if (!copy) return Explain(copy.error(), target_folder, listed_size);
  const LONGLONG written_before = source->info().LastWriteTime.QuadPart;
  const bool other_length = outcome.bytes != listed_size;
  if (other_length || outcome.bytes > static_cast<std::int64_t>(kBlockSize)) {
    if (const Status known = source->Refresh(); !known) return known.error();
  }
  outcome.changed = other_length || source->info().LastWriteTime.QuadPart != written_before;
  const auto attributes = CarryOver(source->info(), *copy, outcome.changed);
  if (!attributes) return attributes.error();
  if (listed == TargetName::kTaken) {
    const Status safe = DoMeanwhile([&copy] { return copy->WriteOut(); }, watcher, outcome.bytes);
    if (!safe) return safe.error();
  }
  if (const Status done = copy->Publish(target_folder + target_name, listed); !done) return done.error();
  outcome.source_attributes = source->info().FileAttributes & kKnownAttributes;
  outcome.target_attributes = *attributes;
  return outcome;
}

}  // namespace platform::windows
