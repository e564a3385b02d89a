#include "tests/contract/platform/posix/system_calls.h"

#include <linux/msdos_fs.h>
#include <sys/statfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <mutex>

namespace platform::posix::test {
namespace {

void Note(const char* call) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  Calls().made += std::string(call) + " ";
}

int OpenWithoutName() {
  int count = 0;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", ignored))
    count += std::filesystem::read_symlink(entry, ignored).string().ends_with(" (deleted)") ? 1 : 0;
  return count;
}

}  // namespace

SystemCalls& Calls() {
  static SystemCalls calls;
  return calls;
}

}  // namespace platform::posix::test

using platform::posix::test::Calls;
using platform::posix::test::Note;

// In the place of the C library's.
extern "C" {

int syncfs(int /*file*/) noexcept {
  Note("syncfs");
  Calls().held_open = platform::posix::test::OpenWithoutName();
  errno = Calls().error_of_syncfs;
  return errno == 0 ? 0 : -1;
}

int fdatasync(int /*file*/) {
  Note("fdatasync");
  return 0;
}

int fsync(int /*file*/) {
  Note("fsync");
  return 0;
}

int renameat(int from, const char* old_name, int to, const char* new_name) noexcept {
  Note("rename");
  return static_cast<int>(syscall(SYS_renameat2, from, old_name, to, new_name, 0));
}

int renameat2(int from, const char* old_name, int to, const char* new_name, unsigned flags) noexcept {
  Note("rename");
  return static_cast<int>(syscall(SYS_renameat2, from, old_name, to, new_name, flags));
}

int fstatfs(int file, struct statfs* facts) noexcept {
  const int result = static_cast<int>(syscall(SYS_fstatfs, file, facts));
  if (Calls().volume != 0) facts->f_type = static_cast<__fsword_t>(Calls().volume);
  return result;
}

int ioctl(int file, unsigned long request, ...) noexcept {
  va_list rest;
  va_start(rest, request);
  void* const value = va_arg(rest, void*);
  va_end(rest);
  std::uint32_t& bits = Calls().fat_bits;
  if (request == FAT_IOCTL_GET_ATTRIBUTES) *static_cast<std::uint32_t*>(value) = bits;
  if (request == FAT_IOCTL_SET_ATTRIBUTES) bits = *static_cast<std::uint32_t*>(value);
  if (request == FAT_IOCTL_GET_ATTRIBUTES || request == FAT_IOCTL_SET_ATTRIBUTES) return 0;
  return static_cast<int>(syscall(SYS_ioctl, file, request, value));
}
}
