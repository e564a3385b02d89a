#pragma once

#include "platform/windows/windows_api.h"

#include <map>
#include <optional>
#include <string>

#include "tests/contract/platform/locked.h"

/// The calls of the system that matter to copies and links, as this test program makes them. They are noted,
/// and what a test wants of them can be set: much of it Wine cannot do, or takes an administrator.
namespace platform::windows::test {

/// What a reparse point says: a link to another path, or something else, by its tag, with none. An empty file
/// or folder holds its place on the disk.
struct Reparse {
  DWORD tag = 0;
  std::wstring target;
};

struct SystemCalls {
  std::string made = {};                          ///< in their order: "flush volume rename-ex " ...
  std::map<std::string, DWORD> fails = {};        ///< calls by name, and the number each is to fail with
  std::wstring format = L"NTFS";                  ///< of every volume
  bool is_remote = false;                         ///< every volume is on a server
  bool opens_volumes = false;                     ///< the user may open the volume itself
  std::wstring elsewhere = L"|";                  ///< what has this in its path is on another volume
  std::optional<WELL_KNOWN_SID_TYPE> owner = {};  ///< of every file; empty: the true one
  std::optional<std::int64_t> now = {};           ///< in the system's steps of 100 ns; empty: the true time
  std::map<std::wstring, Reparse> links = {};     ///< by their paths
  std::string started = {};                       ///< programs, with their parameters; none was run
};

/// Those since it was reset; kept by all threads.
platform::test::Locked<SystemCalls> Calls();

/// Makes a reparse point of a new file or folder.
void MakeReparse(const std::wstring& path, const Reparse& reparse, bool is_folder);

}  // namespace platform::windows::test
