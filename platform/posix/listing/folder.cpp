#include "platform/posix/listing/folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <string_view>

#include "platform/posix/attributes/owner.h"
#include "platform/posix/listing/file_facts.h"
#include "platform/posix/long_path.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

// One call brings about a thousand names.
constexpr std::size_t kEntriesSize = std::size_t{32} * 1024;

// A record with a name of some 12 letters; only used to reserve room.
constexpr std::size_t kUsualRecord = 32;

Error ForeignLinkError() { return {ErrorKind::kForeignLink, 0, {}}; }

bool IsDots(std::string_view name) { return name == "." || name == ".."; }

}  // namespace

Result<std::unique_ptr<PosixFolder>> PosixFolder::Open(const std::string& path, FollowLinks links) {
  constexpr int kFolder = O_RDONLY | O_DIRECTORY;
  auto handle = OpenPath(path, links == FollowLinks::kAll ? kFolder : kFolder | O_NOFOLLOW);
  bool is_link = false;
  if (!handle && links == FollowLinks::kTrusted && handle.error().kind == ErrorKind::kNotAFolder) {
    const auto owner = OwnerOf(path);
    is_link = owner && owner->is_link;
    if (is_link && !owner->is_trusted) return ForeignLinkError();
    if (is_link) handle = OpenPath(path, kFolder);
  }
  if (!handle) return handle.error();
  std::unique_ptr<PosixFolder> folder(new PosixFolder(path, std::move(*handle), is_link));
  folder->Identify();
  if (const Status listed = folder->List(); !listed) return listed.error();
  return folder;
}

PosixFolder::PosixFolder(std::string path, FileDescriptor handle, bool is_link) : handle_(std::move(handle)) {
  path_ = std::move(path);
  is_link_ = is_link;
}

void PosixFolder::Identify() {
  struct statx facts = {};
  if (statx(handle(), "", AT_EMPTY_PATH, STATX_INO, &facts) != 0) return;
  identity_ = platform::Identity{makedev(facts.stx_dev_major, facts.stx_dev_minor), facts.stx_ino};
  is_mount_point_ = (facts.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

Status PosixFolder::List() {
  const std::unique_ptr<char[]> block(new char[kEntriesSize]);
  for (;;) {
    const ssize_t length = getdents64(handle(), block.get(), kEntriesSize);
    if (length < 0) return LastError();
    if (length == 0) return Done{};
    Take(block.get(), static_cast<std::size_t>(length));
  }
}

void PosixFolder::Take(const char* block, std::size_t length) {
  if (entries_.empty()) entries_.reserve(length / kUsualRecord);
  for (std::size_t at = 0; at < length;) {
    const auto* record = reinterpret_cast<const dirent64*>(block + at);
    at += record->d_reclen;
    if (IsDots(record->d_name)) continue;
    Entry& entry = entries_.emplace_back();
    entry.name = record->d_name;
    static_cast<void>(FillEntry(handle(), record->d_name, record->d_type, entry));
  }
}

}  // namespace platform::posix
