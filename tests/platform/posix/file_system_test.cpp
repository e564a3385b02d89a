#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <climits>
#include <filesystem>

#include "platform/posix/posix_file_system.h"
#include "tests/platform/posix/scratch.h"

namespace platform::posix {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMegabyte = 1'000'000;

class PosixFiles : public testing::Test {
 protected:
  PosixFiles() {
    fs::create_directory(from_);
    fs::create_directory(to_);
  }

  void Write(const std::string& path, const std::string& content) {
    ASSERT_TRUE(files_.WriteFile(path, content).ok()) << path;
  }
  Result<CopyOutcome> Copy(const std::string& name, const CopyWatcher& watcher = {}) {
    const auto from = files_.OpenFolder(from_);
    const auto to = files_.OpenFolder(to_);
    for (const Entry& entry : (*from)->entries()) {
      if (entry.name == name) return files_.CopyFile(**from, entry, **to, watcher);
    }
    return Error{ErrorKind::kNotFound, 0, "not listed"};
  }
  std::size_t CountIn(const std::string& folder) { return (*files_.OpenFolder(folder))->entries().size(); }

  test::Scratch scratch_;
  std::string from_ = scratch_.path() + "/from";
  std::string to_ = scratch_.path() + "/to";
  PosixFileSystem files_;
};

std::uintmax_t OpenDescriptors() {
  return static_cast<std::uintmax_t>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
}

TEST_F(PosixFiles, NamesPassThroughByteByByte) {
  for (const std::string& name : {std::string("\xff\xfe not UTF-8 \xc3"), std::string(255, 'n'),
                                  std::string("\n\t\\"), std::string("*?:<>|")}) {
    Write(from_ + "/" + name, name);
    ASSERT_TRUE(Copy(name).ok()) << name;
    EXPECT_EQ(*files_.ReadFile(to_ + "/" + name, 1000), name);
  }
  EXPECT_EQ(files_.WriteFile(from_ + "/" + std::string(256, 'n'), "").error().kind, ErrorKind::kBadName);
}

TEST_F(PosixFiles, PathsBeyondTheLimitOfOneCallWork) {
  std::string deep = from_;
  while (deep.size() < PATH_MAX + 500) {
    deep += '/' + std::string(200, 'd');
    ASSERT_TRUE(files_.CreateFolder(deep).ok());
  }
  const std::string file = deep + "/file";
  Write(file, "content");
  EXPECT_TRUE(files_.SetAttributes(file, kHidden | kReadOnly).ok());
  EXPECT_EQ(*files_.GetAttributes(file), kHidden | kReadOnly);
  EXPECT_EQ(files_.Look(file)->size, 7);
  EXPECT_EQ(*files_.RealPath(file), fs::canonical(from_).string() + file.substr(from_.size()));
  EXPECT_TRUE(files_.ReplaceFile(file, "new").ok());
  EXPECT_TRUE(files_.Space(deep).ok());
  EXPECT_EQ(files_.DriveOf(file), files_.DriveOf(from_));
  const auto from = files_.OpenFolder(deep);
  const auto to = files_.OpenFolder(to_);
  ASSERT_TRUE(files_.CopyFile(**from, (*from)->entries().at(0), **to, {}).ok());
  EXPECT_EQ(*files_.ReadFile(to_ + "/file", 100), "new");
  EXPECT_TRUE(files_.RemoveFile(file).ok());
}

TEST_F(PosixFiles, CopyHasThePermissionsOfTheSourceWhateverTheMask) {
  const mode_t old_mask = umask(077);
  PosixFileSystem strict;
  for (const mode_t mode : {0755u, 0640u, 0444u, 0666u}) {
    Write(from_ + "/file", "x");
    ASSERT_EQ(chmod((from_ + "/file").c_str(), mode), 0);
    const auto from = strict.OpenFolder(from_);
    const auto to = strict.OpenFolder(to_);
    ASSERT_TRUE(strict.CopyFile(**from, (*from)->entries().at(0), **to, {}).ok());
    struct stat facts = {};
    ASSERT_EQ(stat((to_ + "/file").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, mode | 0200);
    fs::remove(from_ + "/file");
  }
  umask(old_mask);
}

TEST_F(PosixFiles, APipeThatTakesTheFilesPlaceDoesNotHoldTheCopyUp) {
  Write(from_ + "/file", "x");
  const auto from = files_.OpenFolder(from_);
  const auto to = files_.OpenFolder(to_);
  fs::remove(from_ + "/file");
  ASSERT_EQ(mkfifo((from_ + "/file").c_str(), 0600), 0);
  EXPECT_FALSE(files_.CopyFile(**from, (*from)->entries().at(0), **to, {}).ok());
  EXPECT_EQ(CountIn(to_), 0u);
}

TEST_F(PosixFiles, AVolumeThatCannotBeWrittenIsToldFromARefusal) {
  if (!scratch_.Mount(to_, "size=1m,mode=777")) GTEST_SKIP() << "mounting takes root";
  Write(from_ + "/file", "x");
  scratch_.Freeze();
  EXPECT_EQ(Copy("file").error().kind, ErrorKind::kReadOnlyMedium);
  EXPECT_EQ(files_.CreateFolder(to_ + "/new").error().kind, ErrorKind::kReadOnlyMedium);
  EXPECT_EQ(files_.DriveOf(to_ + "/new"), fs::canonical(to_).string());
  EXPECT_NE(files_.DriveOf(from_), files_.DriveOf(to_));
}

TEST_F(PosixFiles, FoldersAndCopiesLeaveNoDescriptorOpen) {
  for (int i = 0; i < 20; ++i) Write(from_ + "/" + std::to_string(i), "x");
  const std::uintmax_t before = OpenDescriptors();
  for (int i = 0; i < 20; ++i) ASSERT_TRUE(Copy(std::to_string(i)).ok());
  EXPECT_FALSE(Copy("none").ok());
  EXPECT_EQ(OpenDescriptors(), before);
  const auto held = files_.OpenFolder(from_);
  EXPECT_EQ(OpenDescriptors(), before + 1);
}

TEST_F(PosixFiles, AnotherProgramsFormOfTheAttributeIsReadAndKept) {
  const std::string file = from_ + "/file";
  Write(file, "x");
  // Version 5 with hidden, system and archive (0x26), as a file server writes it, then a creation time.
  const std::string binary("\0\0\5\0\5\0\0\0\x11\0\0\0\x26\0\0\0\1\2\3\4\5\6\7\10", 24);
  ASSERT_EQ(setxattr(file.c_str(), "user.DOSATTRIB", binary.data(), binary.size(), 0), 0);
  EXPECT_EQ(*files_.GetAttributes(file), kHidden | kSystem);
  ASSERT_TRUE(files_.SetAttributes(file, kSystem).ok());
  std::string now(24, ' ');
  ASSERT_EQ(getxattr(file.c_str(), "user.DOSATTRIB", now.data(), now.size()), 24);
  std::string expected = binary;
  expected[12] = 0x24;
  EXPECT_EQ(now, expected);
}

/// A program that is killed while it copies. The pipe tells when the first block is through.
void CopyUntilKilled(PosixFileSystem& files, const std::string& from, const std::string& to, int pipe_end) {
  const auto source = files.OpenFolder(from);
  const auto target = files.OpenFolder(to);
  static_cast<void>(files.CopyFile(**source, (*source)->entries().at(0), **target, [&](std::int64_t bytes) {
    if (bytes == 0) return true;
    if (write(pipe_end, "x", 1) != 1) return false;
    for (;;) pause();
  }));
}

TEST_F(PosixFiles, AKilledCopyLeavesTheOldFileAndAtMostATemporaryOne) {
  const std::string content(9 * kMegabyte, 'n');
  Write(from_ + "/file", content);
  for (const bool replaces : {true, false}) {
    if (replaces) Write(to_ + "/file", "old");
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      CopyUntilKilled(files_, from_, to_, ends[1]);
      _exit(0);
    }
    char byte;
    ASSERT_EQ(read(ends[0], &byte, 1), 1);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    for (const auto& entry : fs::directory_iterator(to_)) {
      const std::string name = entry.path().filename().string();
      EXPECT_TRUE((replaces && name == "file") || IsTemporaryName(name)) << name;
    }
    EXPECT_EQ(files_.Look(to_ + "/file").ok(), replaces);
    if (replaces) {
      EXPECT_EQ(*files_.ReadFile(to_ + "/file", 100), "old");
    }
    fs::remove_all(to_);
    fs::create_directory(to_);
  }
}

}  // namespace
}  // namespace platform::posix
