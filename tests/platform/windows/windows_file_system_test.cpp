#include "platform/windows/windows_file_system.h"

#include <gtest/gtest.h>

#include "platform/path.h"
#include "platform/windows/handle.h"
#include "platform/windows/long_path.h"
#include "tests/platform/windows/temporary_folder.h"

using platform::Entry;
using platform::ErrorKind;
using platform::Folder;
using platform::JoinPath;
using platform::windows::FileHandle;
using platform::windows::LongPath;

namespace {

constexpr std::int64_t kNoLimit = 1 << 30;
constexpr std::size_t kBigSize = 17 << 20;  ///< copied by the system

DWORD RawAttributes(const std::string& path) { return ::GetFileAttributesW(LongPath(path).c_str()); }

/// Another program that keeps a file to itself.
FileHandle Hold(const std::string& path) {
  return FileHandle(
      ::CreateFileW(LongPath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

class WindowsFiles : public ::testing::Test {
 protected:
  WindowsFiles() {
    EXPECT_TRUE(files_.CreateFolder(source_));
    EXPECT_TRUE(files_.CreateFolder(target_));
  }

  void Write(const std::string& path, const std::string& content) {
    ASSERT_TRUE(files_.WriteFile(path, content)) << path;
  }
  std::string Read(const std::string& path) {
    const auto content = files_.ReadFile(path, kNoLimit);
    return content ? *content : "(" + content.error().text + ")";
  }
  std::unique_ptr<Folder> Open(const std::string& path) {
    auto folder = files_.OpenFolder(path);
    EXPECT_TRUE(folder) << path;
    return folder ? std::move(*folder) : nullptr;
  }
  /// Copies the only file of the source.
  platform::Result<platform::CopyOutcome> Copy(const platform::CopyWatcher& watcher = nullptr) {
    const auto source = Open(source_);
    const auto target = Open(target_);
    return files_.CopyFile(*source, source->entries().at(0), *target, watcher);
  }
  std::size_t CountIn(const std::string& path) { return Open(path)->entries().size(); }

  TemporaryFolder root_;
  const std::string source_ = root_ / "source";
  const std::string target_ = root_ / "target";
  platform::windows::WindowsFileSystem files_;
};

TEST_F(WindowsFiles, ATargetOfAThousandCharactersTakesCopiesAndAnswersQuestions) {
  std::string deep = target_;
  while (deep.size() < 1000) {
    deep = JoinPath(deep, std::string(100, 'd'));
    ASSERT_TRUE(files_.CreateFolder(deep));
  }
  const std::string file = JoinPath(deep, "file");
  Write(JoinPath(source_, "file"), std::string(kBigSize, 'n'));
  ASSERT_TRUE(files_.ReplaceFile(file, "old"));
  const auto source = Open(source_);
  const auto target = Open(deep);
  ASSERT_TRUE(files_.CopyFile(*source, source->entries().at(0), *target, nullptr));
  const auto look = files_.Look(file);
  ASSERT_TRUE(look);
  EXPECT_EQ(look->size, static_cast<std::int64_t>(kBigSize));
  EXPECT_TRUE(files_.Space(file));
  EXPECT_TRUE(files_.Flush(file));
}

TEST_F(WindowsFiles, NamesThatDifferInCaseOnlyAreOneFile) {
  const std::pair<std::string, std::string> same[] = {
      {"Report.TXT", "report.txt"},
      {"\xC3\x84rger", "\xC3\xA4rger"},
      {"\xCE\xA9mega", "\xCF\x89MEGA"},
  };
  for (const auto& [one, other] : same) {
    EXPECT_EQ(files_.NameKey(one), files_.NameKey(other)) << one;
    Write(JoinPath(source_, one), "x");
    EXPECT_TRUE(files_.Look(JoinPath(source_, other))) << one;
  }
  EXPECT_EQ(CountIn(source_), std::size(same));
  EXPECT_NE(files_.NameKey("a"), files_.NameKey("\xC3\xA4"));
  EXPECT_NE(files_.NameKey("stra\xC3\x9F"
                           "e"),
            files_.NameKey("strasse"));
  EXPECT_NE(files_.NameKey("\xED\xA0\xBD"), files_.NameKey("\xED\xA0\xBE"));
}

TEST_F(WindowsFiles, TheListingTellsAllThreeAttributes) {
  Write(JoinPath(source_, "file"), "x");
  for (const platform::Attributes bits : {0U, 1U, 2U, 4U, 7U}) {
    ASSERT_TRUE(files_.SetAttributes(JoinPath(source_, "file"), bits));
    EXPECT_EQ(Open(source_)->entries().at(0).attributes, bits);
  }
}

TEST_F(WindowsFiles, OtherAttributesThanTheThreeStay) {
  const std::string file = JoinPath(source_, "file");
  Write(file, "x");
  ASSERT_TRUE(::SetFileAttributesW(LongPath(file).c_str(), FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN));
  ASSERT_TRUE(files_.SetAttributes(file, platform::kSystem));
  EXPECT_EQ(RawAttributes(file), DWORD{FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_SYSTEM});
}

TEST_F(WindowsFiles, ASourceThatAnotherProgramKeepsIsInUse) {
  Write(JoinPath(source_, "file"), "x");
  const FileHandle held = Hold(JoinPath(source_, "file"));
  const auto copied = Copy();
  ASSERT_FALSE(copied);
  EXPECT_EQ(copied.error().kind, ErrorKind::kInUse);
  EXPECT_EQ(CountIn(target_), 0U);
}

TEST_F(WindowsFiles, ATargetThatAnotherProgramKeepsIsInUseAndStays) {
  Write(JoinPath(source_, "file"), "new");
  Write(JoinPath(target_, "file"), "old");
  {
    const FileHandle held = Hold(JoinPath(target_, "file"));
    const auto copied = Copy();
    ASSERT_FALSE(copied);
    EXPECT_EQ(copied.error().kind, ErrorKind::kInUse);
  }
  EXPECT_EQ(Read(JoinPath(target_, "file")), "old");
  EXPECT_EQ(CountIn(target_), 1U);
}

TEST_F(WindowsFiles, ABigFileCopiedByTheSystemKeepsTheSameRules) {
  const std::string file = JoinPath(source_, "file");
  Write(file, std::string(kBigSize, 'n'));
  ASSERT_TRUE(files_.SetAttributes(file, platform::kReadOnly | platform::kHidden | platform::kSystem));
  Write(JoinPath(target_, "file"), "old");

  const auto copied = Copy();
  ASSERT_TRUE(copied);
  EXPECT_EQ(copied->bytes, static_cast<std::int64_t>(kBigSize));
  EXPECT_EQ(copied->source_attributes, platform::kReadOnly | platform::kHidden | platform::kSystem);
  EXPECT_EQ(copied->target_attributes, platform::kSystem);
  const auto target = Open(target_);
  ASSERT_EQ(target->entries().size(), 1U);
  EXPECT_EQ(target->entries()[0].attributes, platform::kSystem);
  EXPECT_EQ(target->entries()[0].modified, Open(source_)->entries().at(0).modified);
  EXPECT_EQ(Read(JoinPath(target_, "file")), std::string(kBigSize, 'n'));
}

TEST_F(WindowsFiles, ACancelledBigFileLeavesItsOldCopyAndNothingElse) {
  Write(JoinPath(source_, "file"), std::string(kBigSize, 'n'));
  Write(JoinPath(target_, "file"), "old");
  const auto copied = Copy([](std::int64_t bytes) { return bytes == 0; });
  ASSERT_FALSE(copied);
  EXPECT_EQ(copied.error().kind, ErrorKind::kCancelled);
  EXPECT_EQ(Read(JoinPath(target_, "file")), "old");
  EXPECT_EQ(CountIn(target_), 1U);
}

TEST_F(WindowsFiles, TheRootOfADriveIsAFolderLikeAnyOther) {
  EXPECT_TRUE(files_.OpenFolder("C:\\"));
  const auto look = files_.Look("C:\\");
  ASSERT_TRUE(look);
  EXPECT_EQ(look->kind, platform::EntryKind::kFolder);
  EXPECT_TRUE(files_.Space("c:"));
}

TEST_F(WindowsFiles, SpaceIsUnknownForADriveThatIsNotThereAndForNoPath) {
  for (const char* path : {"Q:\\", "q:", "\\\\", "ab", ""}) EXPECT_FALSE(files_.Space(path)) << path;
}

TEST_F(WindowsFiles, APatternIsNoName) {
  Write(JoinPath(source_, "file"), "x");
  EXPECT_FALSE(files_.Look(JoinPath(source_, "fil?")));
  EXPECT_FALSE(files_.Look(JoinPath(source_, "*")));
}

}  // namespace
