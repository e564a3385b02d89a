#include "platform/windows/file_system.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/wide_text.h"
#include "platform/pair_comparer.h"
#include "platform/path.h"
#include "platform/windows/attributes/owner.h"
#include "platform/windows/copy/copy_volume.h"
#include "platform/windows/copy/flushing.h"
#include "platform/windows/copy/temporary_file.h"
#include "platform/windows/file_lock.h"
#include "platform/windows/listing/folder.h"
#include "platform/windows/listing/folder_listing.h"
#include "platform/windows/listing/listing.h"
#include "platform/windows/listing/name_key.h"
#include "platform/windows/listing/readable_file.h"
#include "platform/windows/long_path.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"
#include "platform/windows/volume/volume.h"
#include "platform/windows/whole_file.h"
#include "platform/windows/windows_time.h"

namespace platform::windows {
namespace {

/// The search would take these for patterns.
bool HasWildcard(const std::string& path) { return NameOf(path).find_first_of("*?") != std::string::npos; }

Status StatusOf(BOOL success) {
  if (!success) return LastError();
  return Done{};
}

/// With the separator at its end.
std::wstring FolderOf(const std::wstring& path) { return path.substr(0, path.rfind(L'\\') + 1); }

/// Never over anything.
Status Move(const std::wstring& from, const std::wstring& to) {
  return StatusOf(::MoveFileExW(from.c_str(), to.c_str(), 0));
}

/// What the system knows of a path without a search. A link stands for itself.
Result<WIN32_FIND_DATAW> KnownOf(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA known{};
  if (!::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &known)) return LastError();
  WIN32_FIND_DATAW found{};
  found.dwFileAttributes = known.dwFileAttributes;
  found.ftLastWriteTime = known.ftLastWriteTime;
  found.nFileSizeHigh = known.nFileSizeHigh;
  found.nFileSizeLow = known.nFileSizeLow;
  return found;
}

/// What a search for a path finds, a link for itself.
std::optional<WIN32_FIND_DATAW> FoundAt(const std::wstring& path) {
  WIN32_FIND_DATAW found;
  const SearchHandle search(
      ::FindFirstFileExW(path.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0));
  return search ? std::optional(found) : std::nullopt;
}

/// A name that is a link to a folder, which the system removes like a folder.
bool IsFolderLink(const std::wstring& path) {
  const auto found = FoundAt(path);
  return found && IsLink(*found);
}

/// Whether a folder's listing spells a name in this way.
bool IsSpelled(const std::wstring& folder, const std::wstring& name) {
  const auto found = FoundAt(folder + name);
  return found && name == found->cFileName;
}

/// What only the open file tells.
void LookCloser(Entry& entry, const FileHandle& file) {
  const BY_HANDLE_FILE_INFORMATION info = InfoOf(file);
  entry.number = NumberOf(info);
  entry.has_other_names = entry.kind == EntryKind::kFile && info.nNumberOfLinks > 1;
}

Result<DiskSpace> SpaceOfFolder(const std::string& path) {
  ULARGE_INTEGER free{};
  ULARGE_INTEGER total{};
  if (!::GetDiskFreeSpaceExW(LongFolder(path).c_str(), &free, &total, nullptr)) return LastError();
  if (total.QuadPart == 0) return SystemError(ERROR_NOT_SUPPORTED);  // the volume reports no size
  return DiskSpaceOf(free.QuadPart, total.QuadPart);
}

ListingAhead::Listing List(const std::string& path, FollowLinks links) {
  std::wstring long_path = LongFolder(path);
  auto listing = ListFolder(long_path, links);
  if (!listing) return listing.error();
  return std::unique_ptr<Folder>(
      std::make_unique<WindowsFolder>(path, std::move(long_path), std::move(*listing)));
}

}  // namespace

WindowsFileSystem::WindowsFileSystem() : listing_ahead_(List) {}

Result<std::unique_ptr<Folder>> WindowsFileSystem::OpenFolder(const std::string& path, FollowLinks links) {
  return listing_ahead_.Take(path, links);
}

bool WindowsFileSystem::PrefetchFolder(const std::string& path, FollowLinks links) {
  return listing_ahead_.Begin(path, links);
}

Result<Entry> WindowsFileSystem::Stat(const std::string& path) {
  const std::wstring long_path = LongPath(path);
  const auto known = KnownOf(long_path);
  if (!known) return known.error();
  if (HasWildcard(path)) return SystemError(ERROR_INVALID_NAME);
  if (const auto found = FoundAt(long_path)) {
    Entry entry = EntryOf(*found, FolderOf(long_path));
    LookCloser(entry, OpenForAttributes(long_path));
    return entry;
  }
  // No search finds the root of a volume, nor what is in a folder that the user may not list.
  Entry entry = EntryOf(*known, {});
  entry.name = NameOf(path);
  return entry;
}

Result<std::string> WindowsFileSystem::RealPath(const std::string& path) {
  const FileHandle file = OpenForAttributes(LongPath(path));
  if (!file) return LastError();
  std::wstring name = FinalPath(file, FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
  // On a share that needs the right to read every folder above.
  if (name.empty() && ::GetLastError() == ERROR_ACCESS_DENIED) {
    name = FinalPath(file, FILE_NAME_OPENED | VOLUME_NAME_DOS);
  }
  if (name.empty()) return LastError();
  return PlainPath(name);
}

std::optional<Identity> WindowsFileSystem::IdentityOf(const std::string& path) {
  return windows::IdentityOf(InfoOf(OpenForAttributes(LongPath(path))));
}

bool WindowsFileSystem::BelongsToUser(const std::string& path) { return IsTrusted(LongPath(path)); }

std::unique_ptr<Copier> WindowsFileSystem::MakeCopier(const std::string& source, const std::string& target) {
  return std::make_unique<GroupedCopier>(std::make_shared<WindowsCopyVolume>(source, target), copy_threads_);
}

std::unique_ptr<Comparer> WindowsFileSystem::MakeComparer(const std::string& source,
                                                          const std::string& target) {
  const std::size_t workers = WorkersBetween(VolumeOf(LongFolder(source)), VolumeOf(LongFolder(target)));
  copy_threads_.writers.Allow(workers);
  return std::make_unique<PairComparer>(OpenToRead, copy_threads_.writers, workers);
}

Result<FileTime> WindowsFileSystem::ChangedAt(const std::string& path) {
  const FileHandle file = OpenLinkForAttributes(LongPath(path));
  if (!file) return LastError();
  const auto info = BasicInfo(file);
  if (!info) return info.error();
  // FAT and exFAT keep no time of change, but the one of the file's birth; a copy is born when it is made.
  return FromTicks(std::max(info->ChangeTime.QuadPart, info->CreationTime.QuadPart));
}

Status WindowsFileSystem::CreateFolder(const std::string& path, const std::string&) {
  return StatusOf(::CreateDirectoryW(LongPath(path).c_str(), nullptr));
}

Status WindowsFileSystem::WriteNewFile(const std::string& path, const std::string& content) {
  return WriteNewContent(LongPath(path), content);
}

/// Windows sees the change and makes it in one step; others that stand in for it may see none and do nothing.
Status WindowsFileSystem::Respell(const std::string& folder, const std::string& from, const std::string& to) {
  const std::wstring place = LongFolder(folder);
  const std::wstring old_name = base::Widen(from);
  const std::wstring new_name = base::Widen(to);
  if (Status moved = Move(place + old_name, place + new_name); !moved || IsSpelled(place, new_name))
    return moved;
  const std::wstring temporary = place + base::Widen(MakeTemporaryName());
  if (!::CreateDirectoryW(temporary.c_str(), nullptr)) return LastError();
  const std::wstring between = temporary + L'\\' + new_name;
  Status moved = Move(place + old_name, between);
  if (moved) {
    moved = Move(between, place + new_name);
    if (!moved) static_cast<void>(Move(between, place + old_name));
  }
  ::RemoveDirectoryW(temporary.c_str());
  return moved;
}

Status WindowsFileSystem::EndRespelling(const std::string& folder, const std::string& temporary) {
  const std::string path = JoinPath(folder, temporary);
  const auto listed = List(path, FollowLinks::kTrusted);
  if (!listed) return listed.error();
  for (const Entry& entry : (*listed)->entries()) {
    const std::wstring name = base::Widen(entry.name);
    if (Status moved = Move(LongFolder(path) + name, LongFolder(folder) + name); !moved) return moved;
  }
  ::RemoveDirectoryW(LongPath(path).c_str());
  return Done{};
}

Status WindowsFileSystem::RemoveFile(const std::string& path) {
  const std::wstring long_path = LongPath(path);
  const DWORD attributes = ::GetFileAttributesW(long_path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return LastError();
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    if (IsFolderLink(long_path)) return StatusOf(::RemoveDirectoryW(long_path.c_str()));
    return SystemError(kDirectoryNotSupported);
  }
  const bool locked = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (locked) ::SetFileAttributesW(long_path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (::DeleteFileW(long_path.c_str())) return Done{};
  const DWORD code = ::GetLastError();
  if (locked) ::SetFileAttributesW(long_path.c_str(), attributes);
  return SystemError(code);
}

Result<Attributes> WindowsFileSystem::GetAttributes(const std::string& path) {
  const FileHandle file = OpenForAttributes(LongPath(path));
  if (!file) return LastError();
  const auto info = BasicInfo(file);
  if (!info) return info.error();
  return Attributes{info->FileAttributes & kKnownAttributes};
}

Status WindowsFileSystem::SetAttributes(const std::string& path, Attributes attributes) {
  const FileHandle file = OpenForAttributes(LongPath(path), FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES);
  if (!file) return LastError();
  auto info = BasicInfo(file);
  if (!info) return info.error();
  FILE_BASIC_INFO wanted{};  // times of 0 stay as they are
  wanted.FileAttributes = (info->FileAttributes & ~DWORD{kKnownAttributes}) | (attributes & kKnownAttributes);
  if (wanted.FileAttributes == 0) wanted.FileAttributes = FILE_ATTRIBUTE_NORMAL;
  return StatusOf(::SetFileInformationByHandle(file.get(), FileBasicInfo, &wanted, sizeof wanted));
}

Result<DiskSpace> WindowsFileSystem::GetDiskSpace(const std::string& path) {
  auto space = SpaceOfFolder(path);
  if (space) return space;
  // Only a folder can be asked: for a file, or a path that is not there yet, it is the one above.
  const std::string parent = ParentOf(path);
  if (DriveOfPath(path).empty() || parent.empty() || parent == path) return space;
  auto above = SpaceOfFolder(parent);
  return above ? above : space;
}

std::int64_t WindowsFileSystem::LargestFile(const std::string& path) {
  return IsOnFat(LongFolder(path)) ? kLargestOnFat : 0;
}

std::string WindowsFileSystem::DriveOf(const std::string& path) { return DriveOfPath(path); }

std::vector<std::string> WindowsFileSystem::DisksOf(const std::string& path) {
  return DisksOfVolume(LongFolder(path));
}

Result<std::string> WindowsFileSystem::ReadFile(const std::string& path, std::int64_t limit) {
  return ReadContent(LongPath(path), limit);
}

Status WindowsFileSystem::WriteFile(const std::string& path, const std::string& content) {
  return WriteContent(LongPath(path), content);
}

std::wstring WindowsFileSystem::LinkTarget(const std::string& path) {
  const auto real = RealPath(path);
  return LongPath(real ? *real : path);
}

Status WindowsFileSystem::ReplaceFile(const std::string& path, const std::string& content) {
  const std::wstring long_path = LinkTarget(path);
  auto file = TemporaryFile::Create(FolderOf(long_path));
  if (!file) return file.error();
  if (const Status written = file->Write(content.data(), content.size()); !written) return written;
  if (const Status flushed = FlushFully(file->file()); !flushed) return flushed;
  if (const Status published = file->Publish(long_path, TargetName::kTaken); !published) return published;
  file->DateBirth();
  return Done{};
}

Result<std::unique_ptr<FileLock>> WindowsFileSystem::Lock(const std::string& path,
                                                          const std::string& content) {
  return LockAt(LongPath(path), content);
}

Status WindowsFileSystem::Flush(const std::string& path, const IdleCallback& idle) {
  copy_threads_.saver.Allow(1);
  return WaitFor(
      copy_threads_.saver, [folder = LongFolder(path)] { return FlushVolumeOf(folder); }, idle);
}

std::string WindowsFileSystem::NameKey(const std::string& name) const { return NameKeyOf(name); }

}  // namespace platform::windows
