#include "services/disk_proc.h"

#include "base/ascii_case.h"
#include "platform/path.h"
#include "text/str_proc.h"

namespace DiskProc {
namespace {

constexpr const char* kProbeName = "klasdjfdskjfkjkwjkweoewiroew.txt";
constexpr const char* kProbeContent = "A line\r\n";
constexpr std::int64_t kLongestLeftOver = 64;
constexpr double kKilobyte = 1024;

/// What the file system is asked about for a path's disk.
std::string DiskOf(const std::string& path) {
  if (platform::NativePathStyle() == platform::PathStyle::kPosix) return path;
  const std::string disk = base::LowerAscii(path.substr(0, 2));
  return disk.ends_with(':') ? platform::FolderForm(disk) : disk;
}

/// Whether an earlier probe may have left the file: a small one of the user's own that has no other name.
bool IsLeftOver(platform::FileSystem& files, const std::string& probe) {
  const auto entry = files.Stat(probe);
  return entry && entry->kind == platform::EntryKind::kFile && !entry->is_link && !entry->has_other_names &&
         entry->size <= kLongestLeftOver && files.BelongsToUser(probe);
}

}  // namespace

std::int16_t GetDiskSpace(platform::FileSystem& files, const std::string& path, double& free_bytes,
                          double& total_bytes) {
  const auto space = files.GetDiskSpace(DiskOf(path));
  if (!space) return -1;
  free_bytes = static_cast<double>(space->free);
  total_bytes = static_cast<double>(space->total);
  return 0;
}

std::string FreeSpaceText(platform::FileSystem& files, const std::string& path,
                          const text::NumberMarks& marks) {
  double free_bytes = 0;
  double total_bytes = 0;
  if (GetDiskSpace(files, path, free_bytes, total_bytes) != 0) return {};
  return FormatDiskSize(free_bytes, 0, marks);
}

std::string FormatDiskSize(double bytes, std::int16_t capital, const text::NumberMarks& marks) {
  if (bytes < kKilobyte) return StrProc::FormatByteCount(bytes, capital != 0, marks);
  return StrProc::FormatSizeKbMbGb(bytes, StrProc::kDecimals, marks);
}

bool IsWriteProtected(platform::FileSystem& files, const std::string& folder, std::string& error_text) {
  std::string probe = platform::FolderForm(folder) + kProbeName;
  if (IsLeftOver(files, probe)) static_cast<void>(files.RemoveFile(probe));
  platform::Status written = files.WriteNewFile(probe, kProbeContent);
  if (!written && written.error().kind == platform::ErrorKind::kAlreadyExists) {
    // Something else has the name; it is nobody's to touch.
    probe = platform::FolderForm(folder) + platform::MakeTemporaryName();
    written = files.WriteNewFile(probe, kProbeContent);
  }
  platform::Status tried = written;
  if (written) tried = files.RemoveFile(probe);
  // Another program that tries the folder may have taken the file for one that was left behind.
  if (written && !tried && tried.error().kind == platform::ErrorKind::kNotFound) tried = platform::Done{};
  error_text = tried ? std::string() : tried.error().text;
  return !tried;
}

}  // namespace DiskProc
