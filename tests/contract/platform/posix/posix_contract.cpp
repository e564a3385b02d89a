#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <climits>
#include <csignal>
#include <thread>
#include <tuple>
#include <utility>

#include "platform/posix/clock.h"
#include "platform/posix/copy/copy_volume.h"
#include "platform/posix/file_system.h"
#include "platform/posix/locale.h"
#include "platform/posix/settings_store.h"
#include "platform/posix/shell/shell.h"
#include "platform/posix/volume/volume_kind.h"
#include "tests/contract/platform/file_system_contract.h"
#include "tests/contract/platform/posix/system_calls.h"
#include "tests/contract/platform/system_contract.h"
#include "tests/platform/posix/scratch.h"

namespace platform::contract {
namespace {

using posix::test::Calls;

class PosixScene : public Scene {
 public:
  PosixScene() { *Calls() = {}; }
  ~PosixScene() override { *Calls() = {}; }
  FileSystem& files() override { return files_; }
  std::string root() const override { return scratch_.path(); }
  void SetModified(const std::string& path, FileTime modified) override {
    const struct timespec times[2] = {{0, UTIME_OMIT}, {modified.seconds, modified.nanoseconds}};
    utimensat(AT_FDCWD, path.c_str(), times, 0);
  }
  bool MakeLink(const std::string& path, const std::string& destination) override {
    return symlink(destination.c_str(), path.c_str()) == 0;
  }
  bool GiveTo(const std::string& path, bool another) override {
    return posix::test::Scratch::GiveTo(path, another ? 65'533 : geteuid());
  }
  bool MakeHardLink(const std::string& path, const std::string& file) override {
    return link(file.c_str(), path.c_str()) == 0;
  }
  bool MakePipe(const std::string& path) override { return mkfifo(path.c_str(), S_IRWXU) == 0; }
  bool ForbidChanges(const std::string& folder) override {
    return chmod(folder.c_str(), S_IRUSR | S_IXUSR) == 0;
  }
  bool FailFlushes() override {
    for (const char* call : {"syncfs", "fdatasync", "fsync"}) Calls()->fails[call] = EIO;
    return true;
  }
  bool MountFat(const std::string& folder) override {
    Calls()->volume = MSDOS_SUPER_MAGIC;
    return MakeSmallDisk(folder);
  }
  bool MakeSmallDisk(const std::string& folder) override {
    return scratch_.Mount(folder, "size=1m,mode=777");
  }
  std::size_t long_path() const override { return PATH_MAX + 500; }  // more than one call takes

 private:
  posix::test::Scratch scratch_;
  posix::PosixFileSystem files_;
};

/// A store in a folder of its own that goes with it.
class ScratchStore : public posix::test::Scratch, public posix::FileSettingsStore {
 public:
  ScratchStore() : FileSettingsStore(path() + "/not/there/yet/settings") {}
};

INSTANTIATE_TEST_SUITE_P(Posix, FileSystemContract, testing::Values(std::make_unique<PosixScene>));
INSTANTIATE_TEST_SUITE_P(Posix, SettingsStoreContract, testing::Values(std::make_shared<ScratchStore>));
INSTANTIATE_TEST_SUITE_P(Posix, ClockContract, testing::Values(std::make_shared<posix::PosixClock>));
INSTANTIATE_TEST_SUITE_P(Posix, LocaleContract, testing::Values(std::make_shared<posix::PosixLocale>));
INSTANTIATE_TEST_SUITE_P(Posix, ShellContract, testing::Values(std::make_shared<posix::PosixShell>));

auto CountOpen() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

/// What only this file system can get wrong.
class PosixFiles : public SceneTest {
 protected:
  PosixFiles() : SceneTest(std::make_unique<PosixScene>()) {}
};

TEST_F(PosixFiles, NamesPassThroughByteByByte) {
  for (const std::string& name : {std::string("\xff\xfe not UTF-8 \xc3"), std::string(255, 'n'),
                                  std::string("\n\t\\"), std::string("*?:<>|")}) {
    AddFile("from/" + name, name);
    ASSERT_TRUE(Copy(name)) << name;
    EXPECT_EQ(ContentOf("to/" + name), name);
  }
  for (const std::string& name : {std::string(256, 'n'), std::string("from\0/name", 10)})
    EXPECT_EQ(files().WriteFile(At(name), "").error().kind, ErrorKind::kBadName);
}

TEST_F(PosixFiles, WhatIsNewHasThePermissionsOfItsSourceWhateverTheMaskAndItsOwnerCanWrite) {
  const mode_t old_mask = umask(077);
  for (const mode_t mode : {0755u, 0640u, 0444u, 0666u}) {
    AddFile("from/file", "x");
    ASSERT_EQ(chmod(At("from/file").c_str(), mode) + chmod(At("from").c_str(), mode | 0500), 0);
    ASSERT_TRUE(Copy("file") && files().CreateFolder(At("to/new"), At("from")));
    const auto permissions = [this](const char* path) {
      return std::filesystem::status(At(path)).permissions();
    };
    EXPECT_EQ(permissions("to/file"), std::filesystem::perms{mode | 0200});
    EXPECT_EQ(permissions("to/new"), std::filesystem::perms{mode | 0700});
    ASSERT_EQ(chmod(At("from").c_str(), 0700) + rmdir(At("to/new").c_str()) + unlink(At("from/file").c_str()),
              0);
  }
  EXPECT_EQ(umask(old_mask), 077U);
}

TEST_F(PosixFiles, APipeThatTakesTheFilesPlaceDoesNotHoldTheCopyUp) {
  AddFile("from/file", "x");
  const auto from = Open("from");
  ASSERT_TRUE(files().RemoveFile(At("from/file")) && scene_->MakePipe(At("from/file")));
  EXPECT_FALSE(CopyAll(from, {"file"}, Open("to"), TargetName::kTaken).front());
  EXPECT_EQ(NamesIn("to"), Names{});
}

constexpr const char* kJournaled = "syncfs rename rename rename ";
constexpr const char* kUnordered = "syncfs fsync rename rename rename fsync held syncfs fsync ";
constexpr const char* kServed = "fdatasync fdatasync fdatasync rename rename rename ";
constexpr const char* kServedDisk = "fdatasync fdatasync fdatasync rename rename rename fsync syncfs fsync ";
constexpr std::uint64_t kNoDisk = 37, kDisk = 0x801;  // 0:37 and 8:1

// Copier, 2, 3 and 4.
TEST_F(PosixFiles, NoFileGetsItsNameBeforeItIsOnTheDiskWhateverTheVolume) {
  struct Volume {
    unsigned long magic;
    const char* expected;
    std::uint64_t device = 0;
  };
  const Volume volumes[] = {{BTRFS_SUPER_MAGIC, kJournaled},
                            {TMPFS_MAGIC, kJournaled},
                            {MSDOS_SUPER_MAGIC, kUnordered},
                            {posix::kExfat, kUnordered},
                            {0, nullptr},
                            {FUSE_SUPER_MAGIC, kServed, kNoDisk},
                            {FUSE_SUPER_MAGIC, kServedDisk, kDisk},
                            {NFS_SUPER_MAGIC, kServed}};
  for (const char* name : {"a", "b", "c"}) AddFile(std::string("from/") + name, name);
  for (const auto& [magic, expected, device] : volumes) {
    AddFile("to/b", "old");
    *Calls() = {.volume = magic, .device = device};
    for (const auto& outcome : CopyAll(Open("from"), {"a", "b", "c"}, Open("to"), TargetName::kTaken))
      EXPECT_TRUE(outcome);
    const std::string made = Calls()->made;
    EXPECT_TRUE(expected != nullptr ? made == expected : made == kJournaled || made == kUnordered)
        << magic << ": " << made;
    const CopyLimits limits = posix::PosixCopyVolume(At("from"), At("to")).limits();
    EXPECT_TRUE((limits.workers == 8) == (made == kServed) && limits.saves_alone == (made == kServedDisk) &&
                (limits.files == 128) == (made == kUnordered || made == kServedDisk));
    for (const char* name : {"a", "c"}) ASSERT_TRUE(files().RemoveFile(At(std::string("to/") + name)));
  }
}

// Copier, 1.
TEST_F(PosixFiles, AVolumeKeepsHiddenAndSystemInAPlaceOfItsOwnAndACopyIsSystemAlone) {
  constexpr unsigned kNone = 0, kServers = 0x80;
  using Volume = std::pair<unsigned long, unsigned>;
  const Volume volumes[] = {{MSDOS_SUPER_MAGIC, kNone}, {posix::kExfat, kNone},      {posix::kNtfs3, kNone},
                            {FUSE_SUPER_MAGIC, kNone},  {SMB_SUPER_MAGIC, kServers}, {posix::kCifs, kServers},
                            {posix::kSmb2, kServers}};
  for (const auto& [volume, none] : volumes) {
    AddFile("from/file", "xy");
    *Calls() = {.volume = volume};
    ASSERT_TRUE(files().SetAttributes(At("from/file"), kHidden | kSystem));
    EXPECT_EQ(Calls()->dos_bits, 0x26u);
    EXPECT_EQ(Must(Copy("file")).target_attributes, kSystem);
    EXPECT_EQ(Calls()->dos_bits, 0x24u);
    Calls()->dos_bits = 0x06;
    EXPECT_TRUE(files().SetAttributes(At("from/file"), 0));
    EXPECT_EQ(Calls()->dos_bits, none);
    AddFile("from/file", "x");
    const bool is_ntfs = volume == posix::kNtfs3 || volume == FUSE_SUPER_MAGIC;
    EXPECT_NE(files().SetAttributes(At("from/file"), kSystem).ok(), is_ntfs) << "it would become a socket";
    EXPECT_TRUE(files().SetAttributes(At("from/file"), kHidden));
  }
}

// Copier, 7.
TEST_F(PosixFiles, ASourceOfThisMomentIsWaitedForAndOneWhoseTimeCouldHideAChangeGivesACopyThatIsDue) {
  constexpr std::int64_t kNow = 1'700'000'000;
  const std::tuple<FileTime, int, bool> cases[] = {
      {{kNow - 2, 0}, 0, false},       {{kNow - 1, 0}, 0, true},        {{kNow, 500'000'000}, 0, true},
      {{kNow, 490'000'000}, 0, false}, {{kNow, 504'999'999}, 0, false}, {{kNow, 505'000'000}, 4, false},
      {{kNow, 505'000'001}, 4, false}, {{kNow + 1, 0}, 4, false},       {{kNow + 2, 0}, 0, false}};
  for (const auto& [modified, rests, is_due] : cases) {
    AddFile("from/file", "x", modified);
    *Calls() = {.now = {kNow, 505'000'000}};
    EXPECT_EQ(Must(Copy("file")).changed, is_due) << modified.seconds << "." << modified.nanoseconds;
    EXPECT_EQ(Calls()->rests, rests) << modified.seconds << "." << modified.nanoseconds;
  }
}

TEST_F(PosixFiles, ALockIsHadOfWhatADeadProgramLeftAlsoToStayAndNoneWhereTheVolumeKnowsNone) {
  for (const auto& [mode, holder] : {std::pair(0444u, "dead"), {0644u, "me"}}) {
    AddFile("to/lock", "dead");
    ASSERT_TRUE(chmod(At("to/lock").c_str(), mode) == 0 && scene_->ForbidChanges(At("to")));
    const auto lock = Must(files().Lock(At("to/lock"), "me"));
    EXPECT_EQ(files().Lock(At("to/lock"), "you").error().text, holder);
    ASSERT_EQ(chmod(At("to").c_str(), S_IRWXU), 0);
  }
  for (const int reason : {ENOLCK, EWOULDBLOCK}) {
    Calls()->fails = {{"flock", reason}};
    EXPECT_EQ(files().Lock(At("to/lock"), "me").error().code, reason);
    EXPECT_EQ(NamesIn("to"), reason == ENOLCK ? Names() : Names{"lock"}) << "then it may be another's";
  }
}

TEST_F(PosixFiles, WhereNoThreadIsToBeHadWhoAsksCopiesAndListsByItself) {
  AddFile("from/file", "x");
  Calls()->fails = {{"pthread_create", EAGAIN}};
  EXPECT_TRUE(Copy("file"));
  files().PrefetchFolder(At("from"));
}

TEST_F(PosixFiles, AnErrorOfTheDiskIsToldAndLeavesTheOldFile) {
  AddPair(Noise(700'000), "old");
  const auto replace = [&] { return files().ReplaceFile(At("to/file"), "new"); };
  using Fault = std::tuple<std::string, unsigned long, bool>;
  const Fault faults[] = {{"write", 0, true},
                          {"read", 0, false},
                          {"futimens", 0, false},
                          {"syncfs", 0, false},
                          {"fdatasync", FUSE_SUPER_MAGIC, false},
                          {"close", 0, true},
                          {"rename", 0, true},
                          {"fsync", MSDOS_SUPER_MAGIC, true}};
  for (const auto& [call, volume, also_replace] : faults) {
    *Calls() = {.fails = {{call, EIO}, {"copy_file_range", EIO}}, .volume = volume};
    const auto copied = Copy("file");
    ASSERT_TRUE(!copied && copied.error().code == EIO) << call;
    EXPECT_EQ(copied.error().kind == ErrorKind::kShort, call == "read");
    EXPECT_EQ(!also_replace, replace().ok()) << call;
    EXPECT_EQ(files().WriteFile(At("new"), "x").ok(), call != "write" && call != "close");
    *Calls() = {};
    EXPECT_TRUE(ContentOf("to/file") == (also_replace ? "old" : "new")) << call;
    AddFile("to/file", "old");
    EXPECT_EQ(NamesIn("to"), Names{"file"});
  }
  Calls()->fails = {{"write", 0}, {"copy_file_range", EXDEV}};
  EXPECT_EQ(Copy("file").error().kind, ErrorKind::kDiskFull);
  Calls()->fails = {{"close", EINTR}};
  EXPECT_TRUE(Copy("file") && files().WriteFile(At("new"), "x"));
}

TEST_F(PosixFiles, WhatMovesInPartsBetweenSignalsIsWholeAndAReplacedFileIsFlushedBeforeItsName) {
  const std::string content = Noise(700'000);
  AddFile("from/file", content);
  *Calls() = {.fails = {{"copy_file_range", EXDEV}}, .is_slow = true};
  EXPECT_TRUE(files().ReplaceFile(At("to/other"), content));
  EXPECT_EQ(Calls()->made, "fsync rename fsync ");
  bool grew = false;
  const auto grow = [&](std::int64_t) {
    return std::exchange(grew, true) || files().WriteFile(At("from/file"), content + content).ok();
  };
  EXPECT_TRUE(Copy("file", grow));
  EXPECT_TRUE(ContentOf("to/file") == content + content && ContentOf("to/other") == content);
}

TEST_F(PosixFiles, AVolumeThatKnowsLittleTakesNoNameTwiceAndTellsItsLimit) {
  AddFile("from/file", "new");
  AddFile("from/name", "new");
  AddFile("to/file", "old");
  *Calls() = {.fails = {{"renameat2", EINVAL}}, .volume = MSDOS_SUPER_MAGIC};
  const auto outcomes = CopyAll(Open("from"), {"file", "name"}, Open("to"), TargetName::kFree);
  EXPECT_EQ(outcomes[0].error().kind, ErrorKind::kNameTaken);
  EXPECT_TRUE(outcomes[1]);
  EXPECT_EQ(files().Respell(At("to"), "name", "file").error().code, EEXIST);
  EXPECT_FALSE(files().Respell(At("to"), "none", "None"));
  EXPECT_TRUE(files().Respell(At("to"), "name", "NAME"));
  EXPECT_EQ(ContentOf("to/file") + ContentOf("to/NAME"), "oldnew");
  EXPECT_EQ(NamesIn("to"), (Names{"NAME", "file"}));
}

TEST(PosixShellCalls, TheComputerStaysAwakeAsLongAsTheGuardLivesAndAShutdownCanBeCalledOff) {
  const auto lives = [] { return kill(Calls()->child, 0) == 0; };
  *Calls() = {};
  posix::PosixShell shell;
  const auto before = CountOpen();
  auto guard = shell.KeepAwake();
  EXPECT_EQ(Calls()->started,
            "/usr/sbin/systemd-inhibit|--what=sleep:idle|--who=Quorvane|--why=A backup is "
            "running.|/usr/sbin/cat|");
  EXPECT_EQ(CountOpen(), before + 1) << "what the program waits for";
  guard.reset();
  while (lives()) std::this_thread::yield();
  *Calls() = {};
  EXPECT_TRUE(!shell.CallOffShutDown() && shell.ScheduleShutDown("The end"));
  EXPECT_TRUE(Calls()->started.starts_with("/usr/sbin/sh|-c|") &&
              Calls()->started.ends_with("|/usr/sbin/shutdown|The end|/usr/sbin/sleep|"));
  EXPECT_TRUE(lives() && shell.CallOffShutDown());
  while (lives()) std::this_thread::yield();
  *Calls() = {};
  EXPECT_TRUE(shell.ScheduleShutDown({}) && shell.CallOffShutDown() && !shell.CallOffShutDown());
  EXPECT_EQ(Calls()->started, "/usr/sbin/shutdown|-P|+1|/usr/sbin/shutdown|-c|");
}

TEST_F(PosixFiles, ACopyIsReadBackPastTheMemoryAlsoWhereItsOwnerMayNotReadIt) {
  AddFile("from/file", "content");
  ASSERT_EQ(chmod(At("from/file").c_str(), S_IRGRP | S_IROTH), 0);
  if (!scene_->GiveTo(At("from/file"), true)) GTEST_SKIP() << "giving files away takes root";
  *Calls() = {.volume = TMPFS_MAGIC};
  reads_back_ = true;
  EXPECT_TRUE(Copy("file"));
  EXPECT_EQ(Calls()->made, "syncfs forget forget rename ");
  EXPECT_EQ(std::filesystem::status(At("to/file")).permissions(), std::filesystem::perms{0244});
}

TEST_F(PosixFiles, FoldersAndCopiesLeaveNoDescriptorOpen) {
  AddFile("from/file", "x");
  const auto before = CountOpen();
  ASSERT_TRUE(Copy("file"));
  ASSERT_TRUE(Copy("file"));
  EXPECT_EQ(CountOpen(), before);
  std::string deep = "to";
  while (At(deep).size() < 2'400) AddFolder(deep += '/' + std::string(200, 'd'));
  EXPECT_GT(CountOpen(), before) << "the way to it is kept open for a while";
  EXPECT_TRUE(files().GetDiskSpace(At("to")));
  EXPECT_EQ(CountOpen(), before);
}

// Copier, 3.
TEST_F(PosixFiles, AKilledCopyLeavesTheOldFileAndAtMostATemporaryOne) {
  AddPair(Noise(9'000'000), "old");
  if (fork() == 0) {
    static_cast<void>(Copy("file", [](std::int64_t bytes) { return bytes == 0 || raise(SIGKILL) == 0; }));
    _exit(0);
  }
  int end = 0;
  wait(&end);
  ASSERT_TRUE(WIFSIGNALED(end));
  for (const std::string& name : NamesIn("to")) EXPECT_TRUE(name == "file" || IsTemporaryName(name)) << name;
  EXPECT_EQ(ContentOf("to/file"), "old");
}

}  // namespace
}  // namespace platform::contract
