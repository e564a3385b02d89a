#include "platform/windows/listing/listing.h"

#include <string_view>
#include <utility>

#include "base/wide_text.h"
#include "platform/windows/handle.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"
#include "platform/windows/windows_time.h"

namespace platform::windows {
namespace {

/// Sockets, pipes and devices that Linux programs made.
bool IsDevice(const WIN32_FIND_DATAW& found) {
  // ntifs.h: IO_REPARSE_TAG_AF_UNIX, LX_FIFO, LX_CHR, LX_BLK.
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         IsOneOf(found.dwReserved0, {0x80000023, 0x80000024, 0x80000025, 0x80000026});
}

std::int64_t Size(DWORD high, DWORD low) { return (std::int64_t{high} << 32) | low; }

void SetModified(Entry& entry, FILETIME written) {
  if (const std::int64_t ticks = TicksOf(written); ticks > 0) entry.modified = FromTicks(ticks);
}

/// Whether a link that could not be opened leads nowhere, rather than to something the user may not see.
bool IsDead(DWORD code) {
  const ErrorKind kind = SystemError(code).kind;
  return kind == ErrorKind::kNotFound || kind == ErrorKind::kBadName ||
         IsOneOf(code, {ERROR_CANT_RESOLVE_FILENAME, ERROR_CANT_ACCESS_FILE, ERROR_INVALID_REPARSE_DATA});
}

void FollowLink(Entry& entry, const WIN32_FIND_DATAW& found, const std::wstring& path) {
  const auto kind_of = [](DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::kFolderLink : EntryKind::kFile;
  };
  entry.kind = kind_of(found.dwFileAttributes);
  const FileHandle file = OpenForAttributes(path);
  if (!file) {
    if (IsDead(::GetLastError())) entry.kind = EntryKind::kDeadLink;
    return;
  }
  const BY_HANDLE_FILE_INFORMATION info = InfoOf(file);
  if (info.dwFileAttributes == 0) return;
  entry.attributes = info.dwFileAttributes & kKnownAttributes;
  entry.kind = kind_of(info.dwFileAttributes);
  if (entry.kind == EntryKind::kFolderLink) return;
  entry.size = Size(info.nFileSizeHigh, info.nFileSizeLow);
  SetModified(entry, info.ftLastWriteTime);
}

/// Why a search could not begin. The search itself says "not found" for an empty drive and for a file.
Error WhyNotListed(const std::wstring& folder, DWORD code) {
  const std::wstring path = folder.substr(0, folder.size() - 1);
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  const bool is_file = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  return SystemError(is_file ? ERROR_DIRECTORY : code);
}

bool IsEmptyRoot(const std::wstring& folder, DWORD code) {
  return code == ERROR_FILE_NOT_FOUND && ::GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

bool IsLink(const WIN32_FIND_DATAW& found) {
  // For a reparse point the search puts its tag there. "Name surrogates" are the tags that stand for another
  // file or folder: symbolic links, junctions and mount points, links made by Linux programs.
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         IsReparseTagNameSurrogate(found.dwReserved0);
}

bool IsSelfOrParent(std::wstring_view name) { return name == L"." || name == L".."; }

Entry EntryOf(const WIN32_FIND_DATAW& found, const std::wstring& folder) {
  Entry entry;
  entry.name = base::Narrow(found.cFileName);
  entry.attributes = found.dwFileAttributes & kKnownAttributes;
  entry.is_link = IsLink(found);
  if (entry.is_link) {
    FollowLink(entry, found, folder + found.cFileName);
  } else if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    entry.kind = EntryKind::kFolder;
  } else if (IsDevice(found)) {
    entry.kind = EntryKind::kOther;
  } else {
    entry.size = Size(found.nFileSizeHigh, found.nFileSizeLow);
    SetModified(entry, found.ftLastWriteTime);
  }
  return entry;
}

Result<std::vector<Entry>> SearchFolder(const std::wstring& folder) {
  std::vector<Entry> entries;
  WIN32_FIND_DATAW found;
  const SearchHandle search(::FindFirstFileExW((folder + L'*').c_str(), FindExInfoBasic, &found,
                                               FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (!search) {
    const DWORD code = ::GetLastError();
    if (IsEmptyRoot(folder, code)) return entries;
    return WhyNotListed(folder, code);
  }
  do {
    if (!IsSelfOrParent(found.cFileName)) entries.push_back(EntryOf(found, folder));
  } while (::FindNextFileW(search.get(), &found));
  if (const DWORD code = ::GetLastError(); code != ERROR_NO_MORE_FILES) return SystemError(code);
  return entries;
}

}  // namespace platform::windows
