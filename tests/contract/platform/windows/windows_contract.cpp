#include <filesystem>
#include <tuple>

#include "base/wide_text.h"
#include "platform/windows/clock.h"
#include "platform/windows/copy/copy_volume.h"
#include "platform/windows/file_system.h"
#include "platform/windows/handle.h"
#include "platform/windows/locale.h"
#include "platform/windows/long_path.h"
#include "platform/windows/open_file.h"
#include "platform/windows/settings_store.h"
#include "platform/windows/shell/shell.h"
#include "platform/windows/windows_time.h"
#include "tests/contract/platform/file_system_contract.h"
#include "tests/contract/platform/system_contract.h"
#include "tests/contract/platform/windows/system_calls.h"
#include "tests/platform/windows/temporary_folder.h"

namespace platform::contract {
namespace {

using windows::test::Calls;

/// What it does not offer is no obstacle to the user that Wine runs as.
class WindowsScene : public Scene {
 public:
  FileSystem& files() override { return files_; }
  std::string root() const override { return folder_.path(); }
  void SetModified(const std::string& path, FileTime modified) override {
    const auto file = windows::OpenForAttributes(windows::LongPath(path), FILE_WRITE_ATTRIBUTES);
    const FILETIME time = windows::ToSystem(modified);
    ::SetFileTime(file.get(), nullptr, nullptr, &time);
  }
  bool MakeLink(const std::string& path, const std::string& destination) override {
    const std::wstring aim = windows::LongPath(destination);
    windows::test::MakeReparse(windows::LongPath(path), {IO_REPARSE_TAG_SYMLINK, aim},
                               std::filesystem::is_directory(aim));
    return true;
  }
  bool GiveTo(const std::string& /*path*/, bool another) override {
    Calls()->owner.reset();
    if (another) Calls()->owner = WinWorldSid;
    return true;
  }
  bool MakePipe(const std::string& path) override {
    windows::test::MakeReparse(windows::LongPath(path), {0x80000024, {}}, false);
    return true;
  }
  bool MakeHardLink(const std::string& path, const std::string& file) override {
    return ::CreateHardLinkW(windows::LongPath(path).c_str(), windows::LongPath(file).c_str(), nullptr);
  }
  bool FailFlushes() override {
    for (const char* call : {"volume", "write-out", "flush"}) Calls()->fails[call] = ERROR_IO_DEVICE;
    return true;
  }

  WindowsScene() { *Calls() = {}; }

 private:
  TemporaryFolder folder_;
  windows::WindowsFileSystem files_;
};

/// A store in a key of its own, which plays the user's hive while it lives.
class ScratchRegistry : public windows::RegistryStore {
 public:
  ScratchRegistry() {
    HKEY key = nullptr;
    ::RegCreateKeyW(HKEY_CURRENT_USER, name_.c_str(), &key);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, key);
    ::RegCloseKey(key);
  }
  ~ScratchRegistry() override {
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, name_.c_str());
  }

 private:
  const std::wstring name_ = L"Software\\" + base::Widen(MakeTemporaryName());
};

INSTANTIATE_TEST_SUITE_P(Windows, FileSystemContract, testing::Values(std::make_unique<WindowsScene>));
INSTANTIATE_TEST_SUITE_P(Windows, SettingsStoreContract, testing::Values(std::make_shared<ScratchRegistry>));
INSTANTIATE_TEST_SUITE_P(Windows, ClockContract, testing::Values(std::make_shared<windows::WindowsClock>));
INSTANTIATE_TEST_SUITE_P(Windows, LocaleContract, testing::Values(std::make_shared<windows::WindowsLocale>));
INSTANTIATE_TEST_SUITE_P(Windows, ShellContract, testing::Values(std::make_shared<windows::WindowsShell>));

/// What only this system can get wrong.
class WindowsFiles : public SceneTest {
 protected:
  WindowsFiles() : SceneTest(std::make_unique<WindowsScene>()) {}
};

TEST_F(WindowsFiles, TheListingTellsAllThreeAttributesAndOthersStay) {
  AddFile("from/file", "x");
  const std::wstring file = windows::LongPath(At("from/file"));
  ASSERT_TRUE(::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_ARCHIVE));
  for (const Attributes bits : {0U, 1U, 2U, 4U, 7U}) {
    ASSERT_TRUE(files().SetAttributes(At("from/file"), bits));
    EXPECT_EQ(Named(*Open("from"), "file").attributes, bits);
    EXPECT_EQ(::GetFileAttributesW(file.c_str()), FILE_ATTRIBUTE_ARCHIVE | bits);
  }
}

TEST_F(WindowsFiles, AFileThatAnotherProgramKeepsIsInUseAndStays) {
  AddPair("new", "old");
  for (const char* kept : {"from/file", "to/file"}) {
    windows::FileHandle held(::CreateFileW(windows::LongPath(At(kept)).c_str(), GENERIC_READ, 0, nullptr,
                                           OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(Copy("file").error().kind, ErrorKind::kInUse) << kept;
    held.Reset();
    EXPECT_EQ(ContentOf("to/file"), "old");
    EXPECT_EQ(NamesIn("to"), Names{"file"});
  }
  const windows::FileHandle read(::CreateFileW(windows::LongPath(At("to/file")).c_str(), GENERIC_READ,
                                               FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(files().Lock(At("to/file"), "me").error().kind, ErrorKind::kAccessDenied) << "nobody holds it";
}

// Copier, 2, 3 and 4.
TEST_F(WindowsFiles, NoFileGetsItsNameBeforeItIsOnTheDiskWhateverTheVolumeAndTheRights) {
  struct Case {
    const wchar_t* format;
    bool is_remote, opens_volumes;
    const char* fails;
    std::size_t files;
    const char* made;
  };
  constexpr const char* kServed = "flush flush flush rename-ex rename-ex rename-ex ";
  const Case cases[] = {
      {L"NTFS", false, true, "", 512, "volume rename-ex rename-ex rename-ex "},
      {L"ReFS", false, false, "", 512, "write-out write-out write-out flush rename-ex rename-ex rename-ex "},
      {L"NTFS", false, true, "volume", 512,
       "volume write-out write-out flush rename-ex rename-ex rename-ex "},
      {L"FAT32", false, true, "", 128, "volume rename-ex rename-ex rename-ex volume "},
      {L"exFAT", false, false, "", 128,
       "write-out write-out write-out flush rename-ex rename-ex rename-ex write-out write-out flush "},
      {L"ReFS", false, false, "write-out", 512,
       "write-out flush write-out flush write-out flush flush rename-ex rename-ex rename-ex "},
      {L"NTFS", true, true, "", 1024, kServed},
      {L"FAT", true, false, "", 1024, kServed}};
  for (const char* name : {"a", "b", "c"}) AddFile(std::string("from/") + name, name);
  for (const Case& volume : cases) {
    AddFile("to/b", "old");
    *Calls() = {
        .format = volume.format, .is_remote = volume.is_remote, .opens_volumes = volume.opens_volumes};
    const CopyLimits limits = windows::WindowsCopyVolume(At("from"), At("to")).limits();
    EXPECT_TRUE(limits.files == volume.files && limits.folders == limits.files && limits.bytes > 1 << 20);
    EXPECT_TRUE(volume.is_remote ? limits.workers == 8 : limits.workers >= 2 && limits.workers <= 4);
    EXPECT_EQ(files().LargestFile(At("to")) > 0, std::wstring(volume.format).starts_with(L"FAT"));
    Calls()->fails = {{volume.fails, ERROR_IO_DEVICE}};
    for (const auto& outcome : CopyAll(Open("from"), {"a", "b", "c"}, Open("to"), TargetName::kTaken))
      EXPECT_TRUE(outcome && !outcome->changed);
    EXPECT_EQ(Calls()->made.size(), std::string(volume.made).size())
        << Calls()->made;  // many write at a time
    EXPECT_TRUE(volume.fails[0] == 'w' || Calls()->made == volume.made) << Calls()->made;
    for (const char* name : {"a", "c"}) ASSERT_TRUE(files().RemoveFile(At(std::string("to/") + name)));
  }
}

// Copier, 2.
TEST_F(WindowsFiles, WhatLiesOnAnotherVolumeIsFlushedForItselfBeforeAndAfterItsName) {
  for (const char* folder : {"to/here", "to/there"}) AddFolder(folder);
  AddFile("from/file", "x");
  *Calls() = {.format = L"NTFS", .opens_volumes = true, .elsewhere = L"\\there"};
  const auto from = Open("from");
  const auto copier = files().MakeCopier(At("from"), At("to"));
  for (const char* folder : {"to/here", "to/there"})
    copier->Start({from, &Named(*from, "file"), Open(folder), TargetName::kFree});
  copier->Save();
  while (!copier->Collect() || !copier->Collect()) copier->Wait(std::chrono::seconds{1});
  EXPECT_EQ(Calls()->made, "flush volume rename-ex rename-ex flush ");
}

TEST_F(WindowsFiles, AFailureOfTheSystemIsToldAndLeavesTheOldFile) {
  constexpr std::size_t kBig = 17 << 20;
  const std::pair<const char*, std::size_t> faults[] = {
      {"ReadFile", 9}, {"WriteFile", 9},   {"GetFileSizeEx", 9},       {"set", 9},
      {"info 0", 9},   {"copy-end", kBig}, {"SetFilePointerEx", kBig}, {"flush", 9}};
  for (const auto& [call, size] : faults) {
    AddPair(Noise(size), "old");
    ASSERT_TRUE(files().SetAttributes(At("from/file"), kReadOnly));
    Calls()->fails = {{call, ERROR_IO_DEVICE}};
    const auto copied = Copy("file");
    ASSERT_TRUE(!copied && copied.error().code == ERROR_IO_DEVICE) << call;
    EXPECT_EQ(copied.error().kind == ErrorKind::kShort, std::string_view(call) == "ReadFile");
    EXPECT_EQ(Names{"file"}, NamesIn("to")) << call;
    *Calls() = {};
    EXPECT_EQ(ContentOf("to/file"), "old") << call;
    ASSERT_TRUE(files().RemoveFile(At("from/file")));
  }
}

TEST_F(WindowsFiles, ASourceThatTheDiskCannotReadIsToldAsOneAlsoWhereTheSystemCopies) {
  AddPair(Noise(17 << 20), "old");
  *Calls() = {.fails = {{"copy", ERROR_CRC}}};
  EXPECT_EQ(Copy("file").error().kind, ErrorKind::kShort);
}

TEST_F(WindowsFiles, AFullDiskHasNoRoomForTheFileThatFlushesOthersAndNeedsNone) {
  Calls()->fails = {{"WriteFile", ERROR_DISK_FULL}};
  EXPECT_TRUE(files().Flush(At("to"), {}));
  Calls()->fails = {{"WriteFile", ERROR_IO_DEVICE}};
  EXPECT_FALSE(files().Flush(At("to"), {}));
}

// Copier, 2 and 9.
TEST_F(WindowsFiles, WhatTheSystemCopiedIsComparedWithItsSourceReadOnceMore) {
  reads_back_ = true;
  for (const std::size_t size : {std::size_t{0}, std::size_t{5}, (std::size_t{2} << 20) + 1}) {
    AddFile("from/file", Noise(size));
    Calls()->fails = {{"info 7", ERROR_MORE_DATA},
                      {"unbuffered", ERROR_INVALID_PARAMETER}};  // it has streams
    ASSERT_TRUE(Copy("file"));
    EXPECT_TRUE(ContentOf("to/file") == Noise(size));
  }
}

// Copier, 7.
TEST_F(WindowsFiles, ASourceThatWasJustWrittenToIsReadAfterTheTickOfItsTimeOrCountsAsChanged) {
  constexpr std::int64_t kNow = 134'000'000'000'000'000, kSecond = 10'000'000;
  const std::tuple<std::int64_t, const wchar_t*, const char*, bool> cases[] = {
      {1, L"NTFS", "sleep ", false},      {kSecond / 64 - 1, L"NTFS", "sleep ", false},
      {kSecond / 64, L"NTFS", "", false}, {-kSecond + 1, L"NTFS", "sleep sleep sleep sleep ", false},
      {-kSecond, L"FAT32", "", false},    {2 * kSecond - 1, L"FAT32", "", true},
      {2 * kSecond, L"FAT32", "", false}};
  for (const auto& [age, format, sleeps, is_changed] : cases) {
    AddFile("from/file", "x", windows::FromTicks(kNow - age));
    *Calls() = {.format = format, .opens_volumes = true, .now = kNow};
    EXPECT_EQ(Must(Copy("file")).changed, is_changed) << age;
    EXPECT_TRUE(Calls()->made.starts_with(sleeps + std::string("volume "))) << Calls()->made;
  }
}

TEST_F(WindowsFiles, AFileIsFromTrustedHandsOnlyWhereTheUserOrTheSystemOwnsIt) {
  AddFile("from/file", "x");
  EXPECT_TRUE(files().BelongsToUser(At("from/file")));
  EXPECT_FALSE(files().BelongsToUser(At("from/none")));
  for (const auto& [owner, is_trusted] :
       {std::pair(WinBuiltinAdministratorsSid, true), {WinLocalSystemSid, true}, {WinWorldSid, false}}) {
    Calls()->owner = owner;
    EXPECT_EQ(files().BelongsToUser(At("from/file")), is_trusted) << owner;
  }
}

TEST_F(WindowsFiles, AVolumeThatKnowsNoListingByHandleIsSearched) {
  for (const char* name : {"from/a", "from/b"}) AddFile(name, "12345");
  const std::string info = "info " + std::to_string(FileIdBothDirectoryRestartInfo);
  Calls()->fails = {{info, ERROR_INVALID_PARAMETER}};
  EXPECT_EQ(NamesIn("from"), (Names{"a", "b"}));
  EXPECT_EQ(NamesIn("to"), Names());
  EXPECT_EQ(Named(*Open("from"), "a").modified, kOldTime);
  for (const char* call : {"FindNextFileW", "FindFirstFileExW"}) {
    Calls()->fails[call] = ERROR_IO_DEVICE;
    EXPECT_EQ(files().OpenFolder(At("from")).error().code, ERROR_IO_DEVICE) << "no part of a listing";
  }
  Calls()->fails["FindFirstFileExW"] = ERROR_FILE_NOT_FOUND;
  EXPECT_TRUE(Open("from")->entries().empty()) << "as the root of an empty drive";
  Calls()->fails = {{"info " + std::to_string(FileIdBothDirectoryInfo), ERROR_IO_DEVICE}};
  EXPECT_EQ(files().OpenFolder(At("from")).error().code, ERROR_IO_DEVICE) << "no part of a listing";
  Calls()->fails = {{"FindFirstFileExW", ERROR_ACCESS_DENIED}};
  EXPECT_TRUE(EntryAt("from/a").size == 5 && EntryAt("from/a").modified == kOldTime);
}

TEST_F(WindowsFiles, SpaceIsUnknownForADriveThatIsNotThereAndForNoPath) {
  EXPECT_TRUE(files().GetDiskSpace("c:"));
  for (const char* path : {"Q:\\", "q:", "\\\\", "ab", ""}) EXPECT_FALSE(files().GetDiskSpace(path)) << path;
}

TEST(WindowsShellCalls, AShutdownIsToldItsReasonAndThatItFailed) {
  *Calls() = {};
  windows::WindowsShell shell;
  EXPECT_TRUE(shell.ScheduleShutDown("The end") && shell.CallOffShutDown());
  const std::string program = "C:\\windows\\system32\\shutdown.exe|";
  EXPECT_EQ(Calls()->started, program + "/s /c \"The end\"|" + program + "/a|");
  Calls()->fails = {{"ShellExecuteW", 0}};
  EXPECT_FALSE(shell.CallOffShutDown());
}

// Last, since ways that a system does not know are not tried again. Copier, 4 and 5.
TEST_F(WindowsFiles, ASystemThatCannotRenameInTheBestWayDoesItInTheNext) {
  AddFile("from/file", "new");
  const std::tuple<const char*, std::string, std::string> ways[] = {
      {"", "rename-ex ", "rename-ex "},
      {"rename-ex", "rename-ex rename ", "rename "},
      {"rename", "rename move ", "move "}};
  for (const auto& [missing, first, later] : ways) {
    AddFile("to/file", "old");
    *Calls() = {.fails = {{missing, ERROR_NOT_SUPPORTED}}, .format = L"exFAT"};
    const auto copied = CopyAll(Open("from"), {"file"}, Open("to"), TargetName::kFree);
    EXPECT_EQ(copied.front().error().kind, ErrorKind::kNameTaken);
    EXPECT_EQ(Calls()->made, "write-out flush " + first);
    EXPECT_EQ(ContentOf("to/file"), "old");
    Calls()->made.clear();
    EXPECT_TRUE(Copy("file"));
    EXPECT_EQ(Calls()->made, "write-out flush " + later + "flush ");
    EXPECT_EQ(ContentOf("to/file"), "new");
  }
}

}  // namespace
}  // namespace platform::contract
