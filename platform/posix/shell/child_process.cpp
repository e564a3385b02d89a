#include "platform/posix/shell/child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <thread>

#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

constexpr std::array kSystemFolders = {"/usr/sbin/", "/usr/bin/", "/sbin/", "/bin/"};

/// Where a new program's standard input, output and error lead.
class Streams {
 public:
  explicit Streams(const FileDescriptor& input) {
    posix_spawn_file_actions_init(&actions_);
    if (input) {
      posix_spawn_file_actions_adddup2(&actions_, input.get(), STDIN_FILENO);
    } else {
      posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
  }
  Streams(const Streams&) = delete;
  Streams& operator=(const Streams&) = delete;
  ~Streams() { posix_spawn_file_actions_destroy(&actions_); }

  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_ = {};
};

/// Takes note of the child's end, whenever that is, so that it does not stay behind as a zombie.
void WaitInBackground(pid_t child) {
  try {
    std::thread([child] {
      while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
      }
    }).detach();
  } catch (const std::system_error&) {
    return;  // no thread is to be had: it stays one until this program ends
  }
}

}  // namespace

std::string FindSystemCommand(const std::string& name) {
  if (name.empty() || name.find('/') != std::string::npos) return {};
  for (const char* folder : kSystemFolders) {
    std::string path = folder + name;
    if (access(path.c_str(), X_OK) == 0) return path;
  }
  return {};
}

Result<pid_t> StartProgram(const std::string& path, std::vector<std::string> arguments,
                           const FileDescriptor& input) {
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const Streams streams(input);
  pid_t child = 0;
  const int error = posix_spawn(&child, path.c_str(), streams.get(), nullptr, pointers.data(), environ);
  if (error != 0) return ErrorOf(error);
  WaitInBackground(child);
  return child;
}

}  // namespace platform::posix
