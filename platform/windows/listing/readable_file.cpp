#include "platform/windows/listing/readable_file.h"

#include <utility>

#include "base/wide_text.h"
#include "platform/windows/listing/folder.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"
#include "platform/windows/windows_time.h"

namespace platform::windows {
namespace {

class WindowsReadableFile : public ReadableFile {
 public:
  explicit WindowsReadableFile(FileHandle file) : file_(std::move(file)) {}

  Result<std::size_t> Read(std::span<char> room) override {
    return ReadSome(file_, room.data(), room.size());
  }

  bool IsAsListed(const Entry& entry) const override {
    LARGE_INTEGER size{};
    const auto info = BasicInfo(file_);
    return info && ::GetFileSizeEx(file_.get(), &size) && size.QuadPart == entry.size &&
           FromTicks(info->LastWriteTime.QuadPart) == entry.modified;
  }

 private:
  FileHandle file_;
};

/// Unbuffered, a read that begins after a part of a sector is an error, though there is only the end.
class FileReadBack : public WindowsReadableFile {
 public:
  using WindowsReadableFile::WindowsReadableFile;

  Result<std::size_t> Read(std::span<char> room) override {
    if (is_at_end_) return std::size_t{0};
    auto got = WindowsReadableFile::Read(room);
    if (got) is_at_end_ = *got < room.size();
    return got;
  }

 private:
  bool is_at_end_ = false;
};

FileHandle OpenPlain(const std::wstring& path, DWORD flags) {
  return FileHandle(::CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_SEQUENTIAL_SCAN | flags, nullptr));
}

}  // namespace

Result<std::unique_ptr<ReadableFile>> OpenToRead(const Folder& folder, const Entry& file) {
  const std::wstring path = static_cast<const WindowsFolder&>(folder).long_path() + base::Widen(file.name);
  FileHandle handle = OpenPlain(path, 0);
  if (!handle) return FileError(path, ::GetLastError());
  return std::unique_ptr<ReadableFile>(std::make_unique<WindowsReadableFile>(std::move(handle)));
}

Result<std::unique_ptr<ReadableFile>> OpenToReadBack(const std::wstring& path) {
  FileHandle handle = OpenPlain(path, FILE_FLAG_NO_BUFFERING);
  const bool knows_no_such_reads =
      !handle && IsOneOf(::GetLastError(), {ERROR_INVALID_PARAMETER, ERROR_NOT_SUPPORTED});
  if (knows_no_such_reads) handle = OpenPlain(path, 0);
  if (!handle) return FileError(path, ::GetLastError());
  return std::unique_ptr<ReadableFile>(std::make_unique<FileReadBack>(std::move(handle)));
}

}  // namespace platform::windows
