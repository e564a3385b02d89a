#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_system.h"
#include "tests/contract/platform/file_system_contract.h"
#include "tests/contract/platform/system_contract.h"

namespace platform::contract {
namespace {

using namespace memory;

class MemoryScene : public Scene {
 public:
  explicit MemoryScene(bool ignore_case) {
    files_.IgnoreCase(ignore_case);
    files_.AddFolder(root());
  }
  FileSystem& files() override { return files_; }
  std::string root() const override { return "/scene"; }
  void SetModified(const std::string& path, FileTime modified) override {
    files_.AddFile(path, files_.ContentOf(path), modified, files_.AttributesOf(path));
  }
  bool MakeLink(const std::string& path, const std::string& destination) override {
    files_.AddLink(path, destination);
    return true;
  }
  bool GiveTo(const std::string& path, bool another) override {
    if (another) files_.MakeForeign(path);
    return true;
  }
  bool MakePipe(const std::string& path) override {
    files_.AddPipe(path);
    return true;
  }
  bool ForbidChanges(const std::string& folder) override {
    files_.SetReadOnly(folder);
    return true;
  }
  bool Garble(const std::string& path) override {
    files_.Garble(path);
    return true;
  }
  bool FailFlushes() override {
    for (const Call call : {Call::kSaveData, Call::kReplaceFile, Call::kFlush})
      files_.Fail(call, "", {ErrorKind::kOther, 5, "I/O error"});
    return true;
  }
  bool MountFat(const std::string& folder) override {
    files_.AddMountPoint(folder);
    files_.SetLargestFile(kLargestOnFat);
    return true;
  }
  /// The one volume holds all: room for the sources is made too.
  bool MakeSmallDisk(const std::string&) override {
    files_.SetSpace(5 * 1024 * 1024, 10 * 1024 * 1024);
    return true;
  }

 private:
  MemoryFileSystem files_;
};

INSTANTIATE_TEST_SUITE_P(Memory, FileSystemContract,
                         testing::Values([] { return std::make_unique<MemoryScene>(false); }));
INSTANTIATE_TEST_SUITE_P(MemoryIgnoringCase, FileSystemContract,
                         testing::Values([] { return std::make_unique<MemoryScene>(true); }));
INSTANTIATE_TEST_SUITE_P(Memory, SettingsStoreContract,
                         testing::Values(std::make_shared<MemorySettingsStore>));
INSTANTIATE_TEST_SUITE_P(Memory, ClockContract, testing::Values(std::make_shared<MemoryClock>));
INSTANTIATE_TEST_SUITE_P(Memory, LocaleContract, testing::Values(std::make_shared<MemoryLocale>));
INSTANTIATE_TEST_SUITE_P(Memory, ShellContract, testing::Values(std::make_shared<MemoryShell>));

}  // namespace
}  // namespace platform::contract
