#include "platform/posix/listing/file_facts.h"

#include <dirent.h>
#include <fcntl.h>

#include <cerrno>

namespace platform::posix {
namespace {

void TakeOver(const struct stat& facts, Entry& entry) {
  entry.number = facts.st_ino;
  if (S_ISDIR(facts.st_mode)) {
    entry.kind = EntryKind::kFolder;
  } else if (!S_ISREG(facts.st_mode)) {
    entry.kind = EntryKind::kOther;
  } else {
    entry.size = facts.st_size;
    entry.modified = ModifiedOf(facts);
    entry.attributes = AttributesOf(facts);
    entry.has_other_names = facts.st_nlink > 1;
  }
}

bool LeadsNowhere(int number) { return number == ENOENT || number == ENOTDIR || number == ELOOP; }

bool DescribeLink(int folder, const char* name, Entry& entry) {
  entry.is_link = true;
  struct stat facts = {};
  if (fstatat(folder, name, &facts, 0) != 0) {
    if (!LeadsNowhere(errno)) return false;
    entry.kind = EntryKind::kDeadLink;
    return true;
  }
  TakeOver(facts, entry);
  if (entry.kind == EntryKind::kFolder) entry.kind = EntryKind::kFolderLink;
  return true;
}

}  // namespace

FileTime ModifiedOf(const struct stat& facts) {
  return {facts.st_mtim.tv_sec, static_cast<std::int32_t>(facts.st_mtim.tv_nsec)};
}

Attributes AttributesOf(const struct stat& facts) {
  return (facts.st_mode & S_IWUSR) != 0 ? Attributes{0} : kReadOnly;
}

bool FillEntry(int folder, const char* name, unsigned char type, Entry& entry) {
  if (type == DT_DIR) {
    entry.kind = EntryKind::kFolder;
  } else if (type == DT_LNK) {
    return DescribeLink(folder, name, entry);
  } else if (type == DT_REG || type == DT_UNKNOWN) {
    struct stat facts = {};
    if (fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) != 0) return false;
    // A link only where the volume does not say types, or where one took the file's place meanwhile.
    if (S_ISLNK(facts.st_mode)) return DescribeLink(folder, name, entry);
    TakeOver(facts, entry);
  } else {
    entry.kind = EntryKind::kOther;
  }
  return true;
}

}  // namespace platform::posix
