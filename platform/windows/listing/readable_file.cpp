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
    DWORD got = 0;
    if (!::ReadFile(file_.get(), room.data(), static_cast<DWORD>(room.size()), &got, nullptr))
      return LastError();
    return std::size_t{got};
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

}  // namespace

Result<std::unique_ptr<ReadableFile>> OpenToRead(const Folder& folder, const Entry& file) {
  const std::wstring path = static_cast<const WindowsFolder&>(folder).long_path() + base::Widen(file.name);
  FileHandle handle(::CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!handle) return FileError(path, ::GetLastError());
  return std::unique_ptr<ReadableFile>(std::make_unique<WindowsReadableFile>(std::move(handle)));
}

}  // namespace platform::windows
