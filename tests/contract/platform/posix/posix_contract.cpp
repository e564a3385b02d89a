#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/file_settings_store.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_locale.h"
#include "tests/contract/platform/file_system_contract.h"
#include "tests/contract/platform/system_contract.h"
#include "tests/platform/posix/scratch.h"

namespace platform::contract {
namespace {

using posix::test::Scratch;

class PosixScene : public Scene {
 public:
  FileSystem& files() override { return files_; }
  std::string root() const override { return scratch_.path(); }
  char separator() const override { return '/'; }
  void SetModified(const std::string& path, FileTime modified) override {
    const struct timespec times[2] = {{0, UTIME_OMIT}, {modified.seconds, modified.nanoseconds}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0) << path;
  }
  bool MakeLink(const std::string& path, const std::string& destination) override {
    return symlink(destination.c_str(), path.c_str()) == 0;
  }
  bool MakePipe(const std::string& path) override { return mkfifo(path.c_str(), S_IRWXU) == 0; }
  bool ForbidReading(const std::string& file) override { return chmod(file.c_str(), 0) == 0; }
  bool ForbidChanges(const std::string& folder) override {
    return chmod(folder.c_str(), S_IRUSR | S_IXUSR) == 0;
  }
  bool MakeSmallDisk(const std::string& folder) override {
    return scratch_.Mount(folder, "size=1m,mode=777");
  }

 private:
  Scratch scratch_;
  posix::PosixFileSystem files_;
};

/// A store in a folder of its own that goes with it.
class ScratchStore : public Scratch, public posix::FileSettingsStore {
 public:
  ScratchStore() : FileSettingsStore(path() + "/not/there/yet/settings") {}
};

INSTANTIATE_TEST_SUITE_P(Posix, FileSystemContract,
                         testing::Values([] { return std::make_unique<PosixScene>(); }));
INSTANTIATE_TEST_SUITE_P(Posix, SettingsStoreContract,
                         testing::Values([] { return std::make_shared<ScratchStore>(); }));
INSTANTIATE_TEST_SUITE_P(Posix, ClockContract,
                         testing::Values([] { return std::make_shared<posix::PosixClock>(); }));
INSTANTIATE_TEST_SUITE_P(Posix, LocaleContract,
                         testing::Values([] { return std::make_shared<posix::PosixLocale>(); }));

}  // namespace
}  // namespace platform::contract
