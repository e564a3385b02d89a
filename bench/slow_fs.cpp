#define FUSE_USE_VERSION 35
#include <dirent.h>
#include <fcntl.h>
#include <fuse.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

/// A folder as a network share shows it:
///   slow_fs FOLDER MOUNT_POINT [options of FUSE...]
/// Everything is passed through to FOLDER, and whatever would be a round trip to a server waits kRoundTrip
/// first. As with such shares, a listing brings the facts about its entries with it and they stay valid for a
/// while; several requests travel at the same time. Links, extended attributes and O_TMPFILE are not to be
/// had.
namespace {

constexpr std::chrono::milliseconds kRoundTrip(2);
constexpr double kSecondsFactsAreKept = 1;

std::string folder;  // set once, before the first request

std::string Behind(const char* path) { return folder + path; }

int HandleOf(const fuse_file_info* file) { return static_cast<int>(file->fh); }

DIR* ListingOf(const fuse_file_info* file) { return std::bit_cast<DIR*>(file->fh); }

/// What `call` gives, or its error as FUSE wants it.
template <typename Call>
int Here(Call call) {
  const auto result = call();
  return result < 0 ? -errno : static_cast<int>(result);
}

template <typename Call>
int ThereAndBack(Call call) {
  std::this_thread::sleep_for(kRoundTrip);
  return Here(call);
}

int Keep(int handle, fuse_file_info* file) {
  if (handle < 0) return handle;
  file->fh = static_cast<std::uint64_t>(handle);
  return 0;
}

void* Begin(fuse_conn_info*, fuse_config* settings) {
  settings->use_ino = 1;
  settings->kernel_cache = 1;
  settings->attr_timeout = settings->entry_timeout = settings->negative_timeout = kSecondsFactsAreKept;
  return nullptr;
}

int GetFacts(const char* path, struct stat* facts, fuse_file_info* file) {
  if (file != nullptr) return Here([&] { return fstat(HandleOf(file), facts); });
  return ThereAndBack([&] { return lstat(Behind(path).c_str(), facts); });
}

int OpenListing(const char* path, fuse_file_info* file) {
  DIR* listing = opendir(Behind(path).c_str());
  if (listing == nullptr) return -errno;
  file->fh = reinterpret_cast<std::uintptr_t>(listing);
  return 0;
}

int List(const char*, void* buffer, fuse_fill_dir_t add, off_t offset, fuse_file_info* file,
         fuse_readdir_flags) {
  DIR* listing = ListingOf(file);
  if (offset == 0) std::this_thread::sleep_for(kRoundTrip);
  seekdir(listing, offset);
  while (const dirent* entry = readdir(listing)) {
    struct stat facts = {};
    fstatat(dirfd(listing), entry->d_name, &facts, AT_SYMLINK_NOFOLLOW);
    if (add(buffer, entry->d_name, &facts, telldir(listing), FUSE_FILL_DIR_PLUS) != 0) break;
  }
  return 0;
}

int Open(const char* path, fuse_file_info* file) {
  return Keep(ThereAndBack([&] { return open(Behind(path).c_str(), file->flags | O_CLOEXEC); }), file);
}

int Create(const char* path, mode_t mode, fuse_file_info* file) {
  return Keep(
      ThereAndBack([&] { return open(Behind(path).c_str(), file->flags | O_CREAT | O_CLOEXEC, mode); }),
      file);
}

int SetTimes(const char* path, const timespec times[2], fuse_file_info* file) {
  return ThereAndBack([&] {
    if (file != nullptr) return futimens(HandleOf(file), times);
    return utimensat(AT_FDCWD, Behind(path).c_str(), times, AT_SYMLINK_NOFOLLOW);
  });
}

int SetMode(const char* path, mode_t mode, fuse_file_info* file) {
  return ThereAndBack(
      [&] { return file != nullptr ? fchmod(HandleOf(file), mode) : chmod(Behind(path).c_str(), mode); });
}

int SetOwner(const char* path, uid_t user, gid_t group, fuse_file_info* file) {
  return ThereAndBack([&] {
    return file != nullptr ? fchown(HandleOf(file), user, group) : lchown(Behind(path).c_str(), user, group);
  });
}

int SetSize(const char* path, off_t size, fuse_file_info* file) {
  return ThereAndBack([&] {
    return file != nullptr ? ftruncate(HandleOf(file), size) : truncate(Behind(path).c_str(), size);
  });
}

fuse_operations Operations() {
  fuse_operations all = {};
  all.init = Begin;
  all.getattr = GetFacts;
  all.opendir = OpenListing;
  all.readdir = List;
  all.releasedir = [](const char*, fuse_file_info* file) {
    return Here([&] { return closedir(ListingOf(file)); });
  };
  all.open = Open;
  all.create = Create;
  all.read = [](const char*, char* data, std::size_t size, off_t at, fuse_file_info* file) {
    return ThereAndBack([&] { return pread(HandleOf(file), data, size, at); });
  };
  all.write = [](const char*, const char* data, std::size_t size, off_t at, fuse_file_info* file) {
    return ThereAndBack([&] { return pwrite(HandleOf(file), data, size, at); });
  };
  all.fsync = [](const char*, int, fuse_file_info* file) {
    return ThereAndBack([&] { return fsync(HandleOf(file)); });
  };
  all.release = [](const char*, fuse_file_info* file) {
    return ThereAndBack([&] { return close(HandleOf(file)); });
  };
  all.unlink = [](const char* path) { return ThereAndBack([&] { return unlink(Behind(path).c_str()); }); };
  all.rmdir = [](const char* path) { return ThereAndBack([&] { return rmdir(Behind(path).c_str()); }); };
  all.mkdir = [](const char* path, mode_t mode) {
    return ThereAndBack([&] { return mkdir(Behind(path).c_str(), mode); });
  };
  all.rename = [](const char* from, const char* to, unsigned flags) {
    return ThereAndBack(
        [&] { return renameat2(AT_FDCWD, Behind(from).c_str(), AT_FDCWD, Behind(to).c_str(), flags); });
  };
  all.statfs = [](const char* path, struct statvfs* facts) {
    return ThereAndBack([&] { return statvfs(Behind(path).c_str(), facts); });
  };
  all.utimens = SetTimes;
  all.chmod = SetMode;
  all.chown = SetOwner;
  all.truncate = SetSize;
  return all;
}

}  // namespace

int main(int argc, char** argv) {
  char* real = argc > 2 ? realpath(argv[1], nullptr) : nullptr;
  if (real == nullptr) {
    std::fputs("slow_fs FOLDER MOUNT_POINT [options of FUSE...]\n", stderr);
    return 2;
  }
  folder = real;
  std::free(real);
  std::vector<char*> words(argv, argv + argc);
  words.erase(words.begin() + 1);
  const fuse_operations operations = Operations();
  return fuse_main(static_cast<int>(words.size()), words.data(), &operations, nullptr);
}
