#include "tests/contract/platform/posix/system_calls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <linux/msdos_fs.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <filesystem>

#include "platform/posix/volume/volume_kind.h"

namespace platform::posix::test {
namespace {

void Note(const char* call) { Calls()->made += std::string(call) + " "; }

/// Whether a test wants the call to fail; errno then says how.
bool Fails(const char* call) {
  const auto calls = Calls();
  const auto found = calls->fails.find(call);
  if (found != calls->fails.end()) errno = found->second;
  return found != calls->fails.end();
}

int NoteOnly(const char* call) {
  Note(call);
  return Fails(call) ? -1 : 0;
}

/// A call that moves bytes.
ssize_t Move(const char* call, long number, int file, void* bytes, std::size_t size) {
  static std::atomic<unsigned> calls = 0;
  if (Fails(call)) return errno == 0 ? 0 : -1;
  if (Calls()->is_slow && calls++ % 2 == 0) {
    errno = EINTR;
    return -1;
  }
  return syscall(number, file, bytes, Calls()->is_slow ? std::min<std::size_t>(size, 100'000) : size);
}

/// Whether the volume keeps them in an attribute of that name, or in none of its files, as FAT does.
bool HasDosBits(const std::string& name) {
  const unsigned long volume = Calls()->volume;
  if (volume == MSDOS_SUPER_MAGIC || volume == kExfat) return name.empty();
  if (volume == kNtfs3 || volume == FUSE_SUPER_MAGIC) return name == "system.ntfs_attrib";
  return volume != 0 && name == "user.cifs.dosattrib";
}

/// Whether a file that was replaced is still open, and so its space no other's.
bool HoldsSpace() {
  std::error_code ignored;
  return Calls()->made.ends_with("fsync ") &&
         std::ranges::any_of(std::filesystem::directory_iterator("/proc/self/fd"), [&](const auto& file) {
           return std::filesystem::read_symlink(file, ignored).string().ends_with(" (deleted)");
         });
}

}  // namespace

platform::test::Locked<SystemCalls> Calls() {
  static SystemCalls calls;
  return platform::test::Locked(calls);
}

}  // namespace platform::posix::test

using platform::posix::test::Calls;
using platform::posix::test::Fails;
using platform::posix::test::Move;
using platform::posix::test::Note;
using platform::posix::test::NoteOnly;

// In the place of the C library's.
extern "C" {

int syncfs(int /*file*/) noexcept {
  if (platform::posix::test::HoldsSpace()) Note("held");
  return NoteOnly("syncfs");
}

int fdatasync(int /*file*/) { return NoteOnly("fdatasync"); }

int fsync(int /*file*/) { return NoteOnly("fsync"); }

ssize_t read(int file, void* bytes, std::size_t size) { return Move("read", SYS_read, file, bytes, size); }

ssize_t write(int file, const void* bytes, std::size_t size) {
  return Move("write", SYS_write, file, const_cast<void*>(bytes), size);
}

ssize_t copy_file_range(int from, off64_t* at, int to, off64_t* to_at, std::size_t size, unsigned flags) {
  return Fails("copy_file_range") ? -1 : syscall(SYS_copy_file_range, from, at, to, to_at, size, flags);
}

int posix_fadvise(int file, off_t at, off_t length, int advice) noexcept {
  if (advice == POSIX_FADV_DONTNEED) Note("forget");
  return static_cast<int>(syscall(SYS_fadvise64, file, at, length, advice));
}

int futimens(int file, const struct timespec* times) noexcept {
  return Fails("futimens") ? -1 : static_cast<int>(syscall(SYS_utimensat, file, nullptr, times, 0));
}

int fstat(int file, struct stat* facts) noexcept {
  const long result = syscall(SYS_newfstatat, file, "", facts, AT_EMPTY_PATH);
  if (Calls()->device != 0) facts->st_dev = Calls()->device;
  return static_cast<int>(result);
}

int close(int file) {
  const int result = static_cast<int>(syscall(SYS_close, file));
  return Fails("close") ? -1 : result;
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*),
                   void* argument) noexcept {
  static const auto create = reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
  return Fails("pthread_create") ? errno : create(thread, attributes, start, argument);
}

int Lock(int file, int operation) noexcept __asm__("flock");  // which is a struct, too
int Lock(int file, int operation) noexcept {
  return Fails("flock") ? -1 : static_cast<int>(syscall(SYS_flock, file, operation));
}

int clock_gettime(clockid_t clock, struct timespec* now) noexcept {
  if (clock != CLOCK_REALTIME_COARSE || Calls()->now.tv_sec == 0)
    return static_cast<int>(syscall(SYS_clock_gettime, clock, now));
  *now = Calls()->now;
  return 0;
}

int nanosleep(const struct timespec* time, struct timespec* left) {
  if (Calls()->now.tv_sec == 0) return static_cast<int>(syscall(SYS_nanosleep, time, left));
  Calls()->rests += time->tv_nsec > 0 ? 1 : 0;
  return 0;
}

ssize_t fgetxattr(int file, const char* name, void* value, std::size_t size) noexcept {
  if (!platform::posix::test::HasDosBits(name)) return syscall(SYS_fgetxattr, file, name, value, size);
  *static_cast<std::uint32_t*>(value) = Calls()->dos_bits;
  return sizeof Calls()->dos_bits;
}

int fsetxattr(int file, const char* name, const void* value, std::size_t size, int flags) noexcept {
  if (!platform::posix::test::HasDosBits(name))
    return static_cast<int>(syscall(SYS_fsetxattr, file, name, value, size, flags));
  Calls()->dos_bits = *static_cast<const std::uint32_t*>(value);
  return 0;
}

/// Every system has all programs.
int access(const char* /*path*/, int /*wanted*/) noexcept { return 0; }

int posix_spawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* /*attributes*/, char* const arguments[], char* const environment[]) {
  for (char* const* argument = arguments; *argument != nullptr; ++argument)
    Calls()->started += std::string(argument == arguments ? path : *argument) + "|";
  static const auto spawn = reinterpret_cast<decltype(&posix_spawn)>(dlsym(RTLD_NEXT, "posix_spawn"));
  const bool waits = std::string(arguments[0]) == "sh";
  char a_minute[] = "60";
  char* const harmless[] = {arguments[0], waits ? a_minute : nullptr, nullptr};
  const int error = spawn(child, waits ? "/bin/sleep" : "/bin/cat", actions, nullptr, harmless, environment);
  Calls()->child = *child;
  return error;
}

int renameat(int from, const char* old_name, int to, const char* new_name) noexcept {
  if (NoteOnly("rename") != 0) return -1;
  return static_cast<int>(syscall(SYS_renameat2, from, old_name, to, new_name, 0));
}

int renameat2(int from, const char* old_name, int to, const char* new_name, unsigned flags) noexcept {
  if (Fails("renameat2")) return -1;
  Note("rename");
  return static_cast<int>(syscall(SYS_renameat2, from, old_name, to, new_name, flags));
}

int fstatfs(int file, struct statfs* facts) noexcept {
  const int result = static_cast<int>(syscall(SYS_fstatfs, file, facts));
  if (Calls()->volume != 0) facts->f_type = static_cast<__fsword_t>(Calls()->volume);
  return result;
}

int ioctl(int file, unsigned long request, ...) noexcept {
  va_list rest;
  va_start(rest, request);
  void* const value = va_arg(rest, void*);
  va_end(rest);
  std::uint32_t& bits = Calls()->dos_bits;
  if (request == FAT_IOCTL_GET_ATTRIBUTES) *static_cast<std::uint32_t*>(value) = bits;
  if (request == FAT_IOCTL_SET_ATTRIBUTES) bits = *static_cast<std::uint32_t*>(value);
  if (request == FAT_IOCTL_GET_ATTRIBUTES || request == FAT_IOCTL_SET_ATTRIBUTES)
    return platform::posix::test::HasDosBits({}) ? 0 : -1;
  return static_cast<int>(syscall(SYS_ioctl, file, request, value));
}
}
