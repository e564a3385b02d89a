#include "platform/posix/copy/source_file.h"

#include <cerrno>
#include <chrono>
#include <ctime>
#include <utility>

#include "platform/posix/listing/file_facts.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

using std::chrono::nanoseconds;

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

nanoseconds NanosecondsOf(const struct timespec& time) {
  return std::chrono::seconds{time.tv_sec} + nanoseconds{time.tv_nsec};
}

/// The step of the volume's times, judged by one of them: that one is a multiple of more by chance is rare,
/// and then the file is only copied once more.
nanoseconds StepOf(const struct timespec& time) {
  constexpr nanoseconds kOfExFat = std::chrono::milliseconds{10};
  if (time.tv_nsec == 0) return std::chrono::seconds{2};
  return time.tv_nsec % kOfExFat.count() == 0 ? kOfExFat : nanoseconds{0};
}

/// What the file is once the tick is over in which it was written.
Status Examine(SourceFile& file) {
  struct timespec tick = {};
  clock_getres(CLOCK_REALTIME_COARSE, &tick);
  for (int tries = 0; tries < 4; ++tries) {
    if (fstat(file.handle.get(), &file.facts) != 0) return LastError();
    if (!IsNow(file.facts.st_mtim, Now())) break;
    nanosleep(&tick, nullptr);
  }
  return Done{};
}

}  // namespace

Result<SourceFile> ExamineSource(FileDescriptor handle, DosBitsPlace dos_bits) {
  SourceFile file;
  file.handle = std::move(handle);
  if (!file.handle) return LastError();
  if (const Status examined = Examine(file); !examined) return examined.error();
  if (!S_ISREG(file.facts.st_mode)) return NotAFileError(file.facts);
  const nanoseconds age = NanosecondsOf(Now()) - NanosecondsOf(file.facts.st_mtim);
  file.is_fresh = age.count() >= 0 && age < StepOf(file.facts.st_mtim);
  file.attributes = AttributesOf(file.facts) | ReadDosBits(file.handle.get(), dos_bits);
  return file;
}

}  // namespace platform::posix
