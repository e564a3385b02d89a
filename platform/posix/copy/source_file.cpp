#include "platform/posix/copy/source_file.h"

#include <cerrno>
#include <ctime>
#include <utility>

#include "platform/posix/listing/file_facts.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

// Of a volume with coarse times.
constexpr std::int64_t kCoarseStep = 2;

Error NotAFileError(const struct stat& facts) {
  if (S_ISDIR(facts.st_mode)) return ErrorOf(EISDIR);
  return {ErrorKind::kOther, EINVAL, "It is not a regular file."};
}

/// The clock from which the kernel takes the times of files.
struct timespec Now() {
  struct timespec now = {};
  clock_gettime(CLOCK_REALTIME_COARSE, &now);
  return now;
}

/// Whether the time is the clock's present one, or came since it was read.
bool IsNow(const struct timespec& time, const struct timespec& now) {
  const bool is_before =
      time.tv_sec < now.tv_sec || (time.tv_sec == now.tv_sec && time.tv_nsec < now.tv_nsec);
  return !is_before &&
         time.tv_sec <= now.tv_sec + 1;  // what has a time in the future was given it on purpose
}

/// What the file is once the tick is over in which it was written.
bool Examine(SourceFile& file) {
  struct timespec tick = {};
  clock_getres(CLOCK_REALTIME_COARSE, &tick);
  for (int tries = 0; tries < 4; ++tries) {
    if (fstat(file.handle.get(), &file.facts) != 0) return false;
    if (!IsNow(file.facts.st_mtim, Now())) break;
    nanosleep(&tick, nullptr);
  }
  return true;
}

}  // namespace

Result<SourceFile> ExamineSource(FileDescriptor handle, const SourceVolume& volume) {
  SourceFile file;
  file.handle = std::move(handle);
  if (!file.handle || !Examine(file)) return LastError();
  if (!S_ISREG(file.facts.st_mode)) return NotAFileError(file.facts);
  const std::int64_t age = Now().tv_sec - file.facts.st_mtim.tv_sec;
  file.is_fresh = volume.has_coarse_times && age >= 0 && age <= kCoarseStep;
  file.attributes = AttributesOf(file.facts) | ReadDosBits(file.handle.get(), volume.dos_bits);
  return file;
}

}  // namespace platform::posix
