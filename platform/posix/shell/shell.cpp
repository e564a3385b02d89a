#include "platform/posix/shell/shell.h"

#include <fcntl.h>
#include <pwd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>

#include "platform/path.h"
#include "platform/posix/shell/child_process.h"
#include "platform/posix/system_error.h"
#include "platform/posix/volume/volume.h"

namespace platform::posix {
namespace {

/// Holds one end of a pipe on which the inhibiting program waits: it ends when this end is closed, and so
/// also when this program is killed.
class PipeGuard : public AwakeGuard {
 public:
  explicit PipeGuard(FileDescriptor end) : end_(std::move(end)) {}

 private:
  FileDescriptor end_;
};

/// A field of the user's entry in the system's list; empty when there is no entry.
std::string OfUser(char* passwd::*field) {
  struct passwd entry = {};
  struct passwd* found = nullptr;
  std::array<char, std::size_t{16}* 1024> texts = {};
  getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found);
  return found != nullptr && found->*field != nullptr ? found->*field : "";
}

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
  return OfUser(&passwd::pw_dir);  // a service may be run without HOME
}

}  // namespace

std::string PosixShell::ApplicationDataFolder() {
  // A relative path is to be ignored (XDG base directories).
  if (const char* folder = std::getenv("XDG_CONFIG_HOME"); folder != nullptr && *folder == '/') return folder;
  const std::string home = HomeFolder();
  return home.empty() ? home : JoinPath(home, ".config", PathStyle::kPosix);
}

std::string PosixShell::UserName() { return OfUser(&passwd::pw_name); }

std::string PosixShell::ComputerName() {
  std::array<char, HOST_NAME_MAX + 1> name = {};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::uint64_t PosixShell::ProcessNumber() { return static_cast<std::uint64_t>(getpid()); }

std::string PosixShell::ProgramFolder() {
  std::error_code failure;
  return std::filesystem::read_symlink("/proc/self/exe", failure).parent_path().string();
}

std::unique_ptr<AwakeGuard> PosixShell::KeepAwake() {
  const std::string path = FindSystemCommand("systemd-inhibit");
  int ends[2];
  if (path.empty() || pipe2(ends, O_CLOEXEC) != 0) return std::make_unique<AwakeGuard>();
  const FileDescriptor input(ends[0]);
  FileDescriptor held(ends[1]);
  const std::vector<std::string> arguments = {"systemd-inhibit", "--what=sleep:idle", "--who=Quorvane",
                                              "--why=A backup is running.", FindSystemCommand("cat")};
  if (!StartProgram(path, arguments, input)) return std::make_unique<AwakeGuard>();
  return std::make_unique<PipeGuard>(std::move(held));
}

void PosixShell::EnterRootOfCurrentDrive() {
  std::error_code failure;
  const std::string root = MountPointOf(std::filesystem::current_path(failure).string());
  if (!root.empty()) std::filesystem::current_path(root, failure);
}

}  // namespace platform::posix
