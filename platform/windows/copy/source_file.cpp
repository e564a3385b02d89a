#include "platform/windows/copy/source_file.h"

#include <utility>

#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"
#include "platform/windows/windows_time.h"

namespace platform::windows {
namespace {

// The longest between two steps of the clock from which files have their times.
constexpr std::int64_t kTick = kTicksPerSecond / 64;
constexpr DWORD kTickInMilliseconds = 16;

// Of FAT.
constexpr std::int64_t kCoarseStep = 2 * kTicksPerSecond;

/// How long ago that was. Negative for a time to come.
std::int64_t AgeOf(std::int64_t time) { return TicksOf(SystemTime()) - time; }

/// What has a time in the future, beyond what two clocks may differ, was given it on purpose.
bool IsYoungerThan(std::int64_t time, std::int64_t age) {
  const std::int64_t real = AgeOf(time);
  return real < age && real > -kTicksPerSecond;
}

/// Why a read failed. What is wrong with the file's blocks, and nothing else, leaves its bytes missing.
Error Unread(Error error) {
  if (error.kind == ErrorKind::kOther) error.kind = ErrorKind::kShort;
  return error;
}

}  // namespace

Result<SourceFile> SourceFile::Open(const std::wstring& long_path, bool has_coarse_times) {
  SourceFile result;
  result.file_ = FileHandle(::CreateFileW(long_path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                          FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!result.file_) return FileError(long_path, ::GetLastError());
  if (const Status known = result.WaitForTick(); !known) return known.error();
  result.is_fresh_ = has_coarse_times && IsYoungerThan(result.state_.written, kCoarseStep);
  return result;
}

Status SourceFile::WaitForTick() {
  for (int tries = 0; tries < 4; ++tries) {
    if (Status known = Refresh(); !known) return known;
    if (!IsYoungerThan(state_.written, kTick)) break;
    ::Sleep(kTickInMilliseconds);
  }
  return Done{};
}

Status SourceFile::Refresh() {
  const auto info = BasicInfo(file_);
  if (!info) return info.error();
  LARGE_INTEGER size{};
  if (!::GetFileSizeEx(file_.get(), &size)) return LastError();
  state_ = {info->LastWriteTime.QuadPart, size.QuadPart};
  attributes_ = info->FileAttributes;
  return Done{};
}

bool SourceFile::IsMoreThanBytes() const {
  if ((attributes_ & (FILE_ATTRIBUTE_SPARSE_FILE | FILE_ATTRIBUTE_ENCRYPTED)) != 0) return true;
  // Room for the one unnamed stream that every file has; a file system without streams knows no answer.
  alignas(FILE_STREAM_INFO) char buffer[sizeof(FILE_STREAM_INFO) + 32];
  if (!::GetFileInformationByHandleEx(file_.get(), FileStreamInfo, buffer, sizeof buffer)) {
    return ::GetLastError() == ERROR_MORE_DATA;
  }
  return reinterpret_cast<const FILE_STREAM_INFO*>(buffer)->NextEntryOffset != 0;
}

Result<std::size_t> SourceFile::Read(char* buffer, std::size_t size) {
  auto got = ReadSome(file_, buffer, size);
  return got ? got : Unread(got.error());
}

Status SourceFile::GoTo(std::int64_t position) {
  LARGE_INTEGER to{};
  to.QuadPart = position;
  if (!::SetFilePointerEx(file_.get(), to, nullptr, FILE_BEGIN)) return LastError();
  return Done{};
}

}  // namespace platform::windows
