#include "services/disk_proc.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"

namespace DiskProc {

TEST(DiskProc, WordsSizesByTheirUnit) {
  std::string words;
  for (const double bytes : {0.0, 1023.0, 1024.0, 1048575.0, 1048576.0, 1073741823.0, 1073741824.0, 5.5e12}) {
    words += FormatDiskSize(bytes, 0, {}) + "; ";
  }
  EXPECT_EQ(words,
            "0 bytes; 1,023 bytes; 1.00 Kb; 1,024.00 Kb; 1.00 Mb; 1,024.00 Mb; 1.00 Gb; 5,122.27 Gb; ");
  EXPECT_EQ(FormatDiskSize(0, -1, {}) + FormatDiskSize(1, 1, {}), "0 Bytes1 Bytes");
}

TEST(DiskProc, ProbesAFolderAndLeavesNothingBehind) {
  platform::memory::MemoryFileSystem files;
  const std::string probe = "/t/klasdjfdskjfkjkwjkweoewiroew.txt";
  files.AddFile(probe, std::string(64, 'x'));
  std::string error = "old";
  EXPECT_FALSE(IsWriteProtected(files, "/t", error));
  EXPECT_EQ(error, "");
  EXPECT_FALSE(files.Exists(probe));
  files.AddFile(probe, std::string(65, 'x'));
  IsWriteProtected(files, "/t", error);
  EXPECT_TRUE(files.Exists(probe)) << "no probe is so long";
  files.AddFile("/kept", "kept");
  files.Remove(probe);
  files.AddLink(probe, "/kept");
  EXPECT_FALSE(IsWriteProtected(files, "/t", error)) << "somebody's link";
  EXPECT_EQ(files.ContentOf("/kept"), "kept");
  EXPECT_EQ(files.NamesIn("/t").size(), 1U);
  files.Remove(probe);
  files.Fail(platform::memory::Call::kRemoveFile, probe, {platform::ErrorKind::kOther, 5, "stays"});
  EXPECT_TRUE(IsWriteProtected(files, "/t/", error));
  EXPECT_EQ(error, "stays");
  files.Fail(platform::memory::Call::kWriteFile, "", {platform::ErrorKind::kOther, 5, "no"});
  EXPECT_TRUE(IsWriteProtected(files, "/t", error));
  EXPECT_EQ(error, "no");
  platform::memory::MemoryFileSystem raced;
  raced.AddFolder("/t");
  raced.Before([&](platform::memory::Call call, const std::string& path) {
    if (call == platform::memory::Call::kRemoveFile) raced.Remove(path);
  });
  EXPECT_FALSE(IsWriteProtected(raced, "/t", error)) << "another program has removed the probe";
}

}  // namespace DiskProc
