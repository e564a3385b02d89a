#include "platform/posix/source_file.h"

#include <fcntl.h>

#include <cerrno>

#include "platform/posix/dos_attributes.h"
#include "platform/posix/file_facts.h"
#include "platform/posix/posix_error.h"

namespace platform::posix {
namespace {

Error NotAFileError(const struct stat& facts) {
  if (S_ISDIR(facts.st_mode)) return ErrorOf(EISDIR);
  return {ErrorKind::kOther, EINVAL, "It is not a regular file."};
}

}  // namespace

Result<SourceFile> OpenSource(int folder, const std::string& name) {
  // Not blocking, should a pipe have taken the file's place.
  SourceFile file;
  file.handle.Reset(openat(folder, name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file.handle || fstat(file.handle.get(), &file.facts) != 0) return LastError();
  if (!S_ISREG(file.facts.st_mode)) return NotAFileError(file.facts);
  const auto dos = ReadDosAttribute(file.handle.get());
  file.attributes = AttributesOf(file.facts) | BitsOfDosAttribute(dos.value_or(""));
  return file;
}

bool ReadContent(SourceFile& file, std::size_t limit) {
  const auto size = static_cast<std::size_t>(file.facts.st_size);
  if (size > limit) return false;
  // One byte more than the file should have: it tells whether there are more.
  std::unique_ptr<char[]> content(new char[size + 1]);
  if (read(file.handle.get(), content.get(), size + 1) != file.facts.st_size) return false;
  file.content = std::move(content);
  file.handle = {};
  return true;
}

}  // namespace platform::posix
