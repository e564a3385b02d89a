#include "platform/posix/shell/delayed_shutdown.h"

#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/posix/shell/child_process.h"
#include "platform/posix/system_error.h"

namespace platform::posix {
namespace {

constexpr const char* kWaitAndShutDown =
    "trap 'kill $!; exit' TERM; \"$2\" 30 & wait $! && exec \"$0\" -P now \"$1\"";

/// The system takes note within a moment. Where its command counts the minute down itself it goes on alone.
constexpr int kTakesNote = 5'000;  ///< milliseconds

FileDescriptor Opened(pid_t process) {
  return FileDescriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
}

}  // namespace

Status DelayedShutdown::Schedule(const std::string& comment) {
  return comment.empty() ? HandToSystem() : WaitAndShutDown(comment);
}

Status DelayedShutdown::HandToSystem() {
  const std::string shutdown = FindSystemCommand("shutdown");
  if (shutdown.empty()) return ErrorOf(ENOENT);
  const auto started = StartProgram(shutdown, {"shutdown", "-P", "+1"}, {});
  if (!started) return started.error();
  with_system_ = true;
  // This program may be about to end, and with it all that was started for it.
  if (const FileDescriptor process = Opened(*started)) {
    pollfd ended{process.get(), POLLIN, 0};
    poll(&ended, 1, kTakesNote);
  }
  return Done{};
}

Status DelayedShutdown::WaitAndShutDown(const std::string& reason) {
  const std::string shell = FindSystemCommand("sh");
  const std::string shutdown = FindSystemCommand("shutdown");
  const std::string sleep = FindSystemCommand("sleep");
  if (shell.empty() || shutdown.empty() || sleep.empty()) return ErrorOf(ENOENT);
  const auto started = StartProgram(shell, {"sh", "-c", kWaitAndShutDown, shutdown, reason, sleep}, {});
  if (!started) return started.error();
  waiting_ = Opened(*started);
  if (waiting_) return Done{};
  const Error error = LastError();
  kill(*started, SIGTERM);  // a shutdown that cannot be called off is none
  return error;
}

Status DelayedShutdown::CallOff() {
  if (std::exchange(with_system_, false)) {
    const auto started = StartProgram(FindSystemCommand("shutdown"), {"shutdown", "-c"}, {});
    if (!started) return started.error();
    return Done{};
  }
  const FileDescriptor process = std::move(waiting_);
  if (!process) return ErrorOf(ESRCH);
  if (syscall(SYS_pidfd_send_signal, process.get(), SIGTERM, nullptr, 0) != 0) return LastError();
  return Done{};
}

}  // namespace platform::posix
