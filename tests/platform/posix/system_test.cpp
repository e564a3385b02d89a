#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include "platform/posix/attributes/dos_attributes.h"
#include "platform/posix/clock.h"
#include "platform/posix/file_system.h"
#include "platform/posix/locale.h"
#include "platform/posix/settings_store.h"
#include "platform/posix/shell/child_process.h"
#include "platform/posix/shell/shell.h"
#include "platform/posix/system_error.h"
#include "platform/posix/volume/physical_disk.h"
#include "tests/platform/posix/scratch.h"

namespace platform::posix {
namespace {

/// These variables alone. A test sets all that it depends on, so nothing is put back.
void SetEnvironment(const std::vector<std::string>& variables) {
  clearenv();
  for (const std::string& variable : variables) {
    const std::size_t at = variable.find('=');
    setenv(variable.substr(0, at).c_str(), variable.substr(at + 1).c_str(), 1);
  }
}

TEST(PosixLocale, LanguageIsTheFirstThatTheEnvironmentNames) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{}, "en"},
      {{"LC_ALL=nl_NL@euro", "LC_MESSAGES=fr_FR", "LANG=de_AT"}, "nl"},
      {{"LANG=en_US.UTF-8", "LANGUAGE=de:en"}, "de"},
      {{"LANG=d{_AT"}, "en"},
  };
  for (const auto& [variables, language] : cases) {
    SetEnvironment(variables);
    EXPECT_EQ(PosixLocale().Language(), language) << testing::PrintToString(variables);
  }
}

TEST(SystemError, AServerThatIsAwayHasNotLostItsFiles) {
  EXPECT_EQ(ErrorOf(ENOENT).kind, ErrorKind::kNotFound);
  for (const int number : {ESTALE, EIO, ENOTCONN, EHOSTDOWN, ETIMEDOUT, ENODEV, ENOMEDIUM})
    EXPECT_EQ(ErrorOf(number).kind, ErrorKind::kOther) << number;
}

TEST(PosixClock, LocalTimeKnowsDaylightSaving) {
  SetEnvironment({"TZ=CET-1CEST,M3.5.0,M10.5.0/3"});
  PosixClock clock;
  EXPECT_EQ(clock.ToLocal({1'700'000'000, 0}), ToUtc({1'700'003'600, 0}));
  EXPECT_EQ(clock.ToLocal({1'690'000'000, 0}), ToUtc({1'690'007'200, 0}));
}

TEST(FileSettingsStore, LinesThatCannotBeReadArePassedOver) {
  test::Scratch scratch;
  const std::string path = scratch.path() + "/settings";
  ASSERT_TRUE(
      PosixFileSystem().WriteFile(path, "early=1\n[Key]\r\nnonsense\n\nname=value\r\n[open\n=\nlast=\\"));
  FileSettingsStore store(path);
  EXPECT_EQ(store.Read("key", "NAME").value, "value");
  EXPECT_EQ(store.Read("Key", "last").value, "\\");
  EXPECT_FALSE(store.HasKey("open"));
}

TEST(FileSettingsStore, AStoreThatCannotBeReadIsNotOverwritten) {
  test::Scratch folder;  // takes the file's place
  FileSettingsStore store(folder.path());
  EXPECT_NE(store.Write("Key", "name", "value").create_code, kStoreSuccess);
  EXPECT_EQ(store.Read("Key", "name").code, EISDIR);
  EXPECT_FALSE(store.Message(EISDIR).empty());
  const std::string closed = folder.path() + "/closed";
  EXPECT_EQ(FileSettingsStore(closed).Write("Key", "name", "value").set_code, kStoreSuccess);
  std::filesystem::permissions(folder.path(), std::filesystem::perms{0500});
  EXPECT_EQ(FileSettingsStore(closed).Write("Key", "name", "value").set_code, kStoreAccessDenied);
  EXPECT_EQ(FileSettingsStore("/proc/none/store").Write("Key", "name", "value").set_code, kStoreNotFound);
}

TEST(PhysicalDisk, IsThatOfTheDeepestMountAroundThePath) {
  const std::string mounts =
      "30 21 0:33 / /media/My\\040Disk rw - btrfs /dev/sdb2 rw\n"
      "31 21 0:40 / /media/My\\040Disk/share rw - cifs //nas/my\\0401 rw\n"
      "32 21 8:1 / /mnt rw - ext4 /dev/sda1 rw\n"
      "33 32 8:2 / /mnt rw - ext4 /dev/sda2 rw\n"
      "21 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda1 rw\n";
  const std::pair<std::string, std::string> cases[] = {{"/home", "/dev/vda1"},
                                                       {"/media/My Disk/subvolume/folder", "/dev/sdb2"},
                                                       {"/media/My", "/dev/vda1"},
                                                       {"/media/My Disk/share", "//nas/my 1"},
                                                       {"/mnt/folder", "/dev/sda2"}};
  for (const auto& [path, source] : cases) {
    std::istringstream lines(mounts);
    EXPECT_EQ(SourceOfMount(lines, path), source) << path;
  }
}

TEST(PhysicalDisk, LiesUnderPartitionsArraysEncryptionAndImagesWhichMayGoInACircle) {
  namespace fs = std::filesystem;
  test::Scratch scratch;
  const fs::path root = scratch.path();
  for (const char* folder : {"dev", "sda/sda1/partition", "sdb/queue", "md/slaves", "crypt/slaves",
                             "loop0/loop", "loop1/loop", "circle/slaves"})
    fs::create_directories(root / folder);
  for (const char* link : {"md/slaves/1>sda/sda1", "md/slaves/2>sdb", "crypt/slaves/1>md",
                           "circle/slaves/1>circle", "dev/1:5>sdb"}) {
    const std::string_view text = link;
    fs::create_symlink(root / text.substr(text.find('>') + 1), root / text.substr(0, text.find('>')));
  }
  // Both volumes count as their own; the devices that they are said to be mounted from are on every system.
  PosixFileSystem files;
  const DeviceTree tree{(root / "dev").string(), root.string(), (root / "mounts").string()};
  ASSERT_TRUE(
      files.WriteFile(tree.mounts,
                      "1 1 0:1 / /proc rw - proc /dev/null rw\n2 1 0:2 / /sys rw - sysfs /dev/zero rw\n"
                      "3 2 0:3 / /sys/kernel rw - cifs //nas/dev rw\n"));
  ASSERT_TRUE(files.WriteFile((root / "loop0/loop/backing_file").string(), "/sys/module\n"));
  ASSERT_TRUE(files.WriteFile((root / "loop1/loop/backing_file").string(), "/proc/version\n"));
  ASSERT_TRUE(files.WriteFile((root / "sdb/queue/rotational").string(), "1\n"));
  using Disks = std::vector<std::string>;
  const std::pair<std::string, Disks> cases[] = {
      {"sda/sda1", {"sda"}}, {"sdb", {"sdb"}}, {"crypt", {"sda", "sdb"}}, {"loop0", {"sdb"}}, {"loop1", {}},
      {"circle", {}},        {"none", {}}};
  for (const auto& [device, expected] : cases) {
    fs::remove(root / "dev/1:3");
    fs::create_symlink(root / device, root / "dev/1:3");
    Disks disks = DisksOfVolume("/proc/self", tree);
    std::ranges::sort(disks);
    EXPECT_EQ(disks, expected) << device;
    EXPECT_EQ(Turns("/proc/self", tree), std::ranges::count(expected, "sdb") == 1) << device;
  }
  for (const char* unknown : {"/sys/kernel", "/proc/none"})
    EXPECT_EQ(DisksOfVolume(unknown, tree), Disks()) << unknown;
}

TEST(DosAttributes, AreReadAndKeptInEveryFormThatIsAbout) {
  const std::string version_3("0x26\0\3\0\3\0\0\0\x11\0\0\0\x26\0\0\0", 19);
  const std::string version_5("\0\0\5\0\5\0\0\0\x11\0\0\0\x26\0\0\0with more", 25);
  const std::string changed_5("\0\0\5\0\5\0\0\0\x11\0\0\0\x24\0\0\0with more", 25);
  for (const std::string& value : {std::string("0x26"), version_3, version_5})
    EXPECT_EQ(BitsOfDosAttribute(value), kHidden | kSystem) << value;
  EXPECT_EQ(WithDosBits("0x23", kSystem), "0x24");
  EXPECT_EQ(WithDosBits(version_5, kSystem), changed_5);
}

TEST(ChildProcess, OnlyTheSystemsOwnCommandsAreFound) {
  SetEnvironment({"PATH=/no/such/folder"});
  EXPECT_EQ(FindSystemCommand("sh").substr(0, 1), "/");
  EXPECT_EQ(FindSystemCommand("../bin/sh"), "");
  EXPECT_EQ(FindSystemCommand(""), "");
}

TEST(PosixShell, SettingsLieWhereTheDesktopSays) {
  SetEnvironment({"HOME=/home/me", "XDG_CONFIG_HOME=/conf"});
  EXPECT_EQ(PosixShell().ApplicationDataFolder(), "/conf");
  SetEnvironment({"HOME=/home/me", "XDG_CONFIG_HOME=relative"});
  EXPECT_EQ(PosixShell().ApplicationDataFolder(), "/home/me/.config");
  EXPECT_TRUE(std::filesystem::exists(PosixShell().ProgramFolder() + "/test_platform_posix"));
}

}  // namespace
}  // namespace platform::posix
