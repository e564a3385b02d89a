#include "platform/windows/listing/folder_listing.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

#include "platform/windows/attributes/owner.h"
#include "platform/windows/listing/listing.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"

namespace platform::windows {
namespace {

// One call brings some five hundred names.
constexpr std::size_t kListingSize = std::size_t{64} * 1024;

struct ListingBlock {
  alignas(FILE_ID_BOTH_DIR_INFO) char bytes[kListingSize];
};

/// The root of a drive keeps its separator: without it the path would be that of the device.
std::wstring WithoutSeparator(const std::wstring& folder) {
  return folder.ends_with(L":\\") ? folder : folder.substr(0, folder.size() - 1);
}

FileHandle OpenForListing(const std::wstring& path, DWORD flags) {
  return FileHandle(::CreateFileW(path.c_str(), FILE_LIST_DIRECTORY | SYNCHRONIZE, kShareAll, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr));
}

/// The tag of an open reparse point; 0 for anything else.
DWORD ReparseTagOf(const FileHandle& folder) {
  FILE_ATTRIBUTE_TAG_INFO info{};
  const bool is_known =
      ::GetFileInformationByHandleEx(folder.get(), FileAttributeTagInfo, &info, sizeof info);
  return is_known && (info.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 ? info.ReparseTag : 0;
}

FILETIME TimeOf(LARGE_INTEGER ticks) { return {ticks.LowPart, static_cast<DWORD>(ticks.HighPart)}; }

/// As a search would have found it. Names of more than its 259 units are longer than any volume's.
WIN32_FIND_DATAW FoundOf(const FILE_ID_BOTH_DIR_INFO& info) {
  WIN32_FIND_DATAW found{};
  found.dwFileAttributes = info.FileAttributes;
  found.ftLastWriteTime = TimeOf(info.LastWriteTime);
  found.nFileSizeHigh = static_cast<DWORD>(info.EndOfFile.HighPart);
  found.nFileSizeLow = info.EndOfFile.LowPart;
  // For a reparse point its tag is in this place.
  found.dwReserved0 = info.EaSize;
  const std::size_t length =
      std::min<std::size_t>(info.FileNameLength / sizeof(wchar_t), ARRAYSIZE(found.cFileName) - 1);
  std::copy_n(info.FileName, length, found.cFileName);
  return found;
}

void Take(const ListingBlock& block, const std::wstring& folder, std::vector<Entry>& entries) {
  for (const char* at = block.bytes;;) {
    const auto& info = *reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(at);
    const WIN32_FIND_DATAW found = FoundOf(info);
    if (!IsSelfOrParent(found.cFileName)) {
      Entry entry = EntryOf(found, folder);
      if (!entry.is_link) entry.number = static_cast<std::uint64_t>(info.FileId.QuadPart);
      entries.push_back(std::move(entry));
    }
    if (info.NextEntryOffset == 0) return;
    at += info.NextEntryOffset;
  }
}

bool IsEnd(DWORD code) { return IsOneOf(code, {ERROR_NO_MORE_FILES, ERROR_FILE_NOT_FOUND}); }

/// Whether the volume knows such a listing; else nothing is done.
bool List(const FileHandle& handle, const std::wstring& folder, std::vector<Entry>& entries, DWORD& code) {
  const auto block = std::make_unique<ListingBlock>();
  auto kind = FileIdBothDirectoryRestartInfo;
  while (::GetFileInformationByHandleEx(handle.get(), kind, block.get(), sizeof(ListingBlock))) {
    Take(*block, folder, entries);
    kind = FileIdBothDirectoryInfo;
  }
  code = ::GetLastError();
  return IsEnd(code) || kind == FileIdBothDirectoryInfo;
}

/// The folder at a path, a link followed as far as that is wanted.
Result<FileHandle> OpenAt(const std::wstring& path, FollowLinks links, bool& is_link) {
  FileHandle handle =
      OpenForListing(path, links == FollowLinks::kTrusted ? FILE_FLAG_OPEN_REPARSE_POINT : DWORD{0});
  const DWORD tag = links == FollowLinks::kTrusted ? ReparseTagOf(handle) : 0;
  if (tag != 0) {
    // Folders of a cloud are reparse points and no links.
    is_link = IsReparseTagNameSurrogate(tag);
    if (is_link && !IsTrusted(path)) return Error{ErrorKind::kForeignLink, 0, {}};
    handle = OpenForListing(path, 0);
  }
  if (!handle) return LastError();
  return handle;
}

Result<FolderListing> SearchedListing(const std::wstring& folder, FolderListing listing) {
  auto entries = SearchFolder(folder);
  if (!entries) return entries.error();
  listing.entries = std::move(*entries);
  return listing;
}

}  // namespace

Result<FolderListing> ListFolder(const std::wstring& folder, FollowLinks links) {
  FolderListing listing;
  const auto handle = OpenAt(WithoutSeparator(folder), links, listing.is_link);
  // A folder above may let nobody open what is in it, and yet be searched.
  if (!handle && handle.error().kind == ErrorKind::kForeignLink) return handle.error();
  if (!handle) return SearchedListing(folder, std::move(listing));
  const BY_HANDLE_FILE_INFORMATION info = InfoOf(*handle);
  if (info.dwFileAttributes != 0 && (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
    return SystemError(ERROR_DIRECTORY);
  listing.identity = IdentityOf(info);
  DWORD code = 0;
  if (!List(*handle, folder, listing.entries, code)) return SearchedListing(folder, std::move(listing));
  if (!IsEnd(code)) return SystemError(code);
  return listing;
}

}  // namespace platform::windows
