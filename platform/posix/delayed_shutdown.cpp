#include "platform/posix/delayed_shutdown.h"

#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/posix/child_process.h"
#include "platform/posix/posix_error.h"

namespace platform::posix {
namespace {

constexpr const char* kWaitAndShutDown =
    "trap 'kill $!; exit' TERM; sleep 30 & wait $! && exec \"$0\" -P now \"$1\"";

}  // namespace

Status DelayedShutdown::Run(const std::vector<std::string>& switches) {
  if (std::find(switches.begin(), switches.end(), "/a") != switches.end()) return CallOff();
  const auto reason = std::find(switches.begin(), switches.end(), "/c");
  const bool given = reason != switches.end() && reason + 1 != switches.end();
  return Begin(given ? *(reason + 1) : std::string());
}

Status DelayedShutdown::Begin(const std::string& reason) {
  const std::string shell = FindSystemCommand("sh");
  const std::string shutdown = FindSystemCommand("shutdown");
  if (shell.empty() || shutdown.empty()) return ErrorOf(ENOENT);
  const auto started = StartProgram(shell, {"sh", "-c", kWaitAndShutDown, shutdown, reason}, {});
  if (!started) return started.error();
  waiting_.Reset(static_cast<int>(syscall(SYS_pidfd_open, *started, 0)));
  if (waiting_) return Done{};
  const Error error = LastError();
  kill(*started, SIGTERM);  // a shutdown that cannot be called off is none
  return error;
}

Status DelayedShutdown::CallOff() {
  const FileDescriptor process = std::move(waiting_);
  if (!process) return ErrorOf(ESRCH);
  if (syscall(SYS_pidfd_send_signal, process.get(), SIGTERM, nullptr, 0) != 0) return LastError();
  return Done{};
}

}  // namespace platform::posix
