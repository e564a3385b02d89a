#include "platform/posix/delayed_shutdown.h"

#include <signal.h>

#include <algorithm>
#include <cerrno>

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
  waiting_ = *started;
  return Done{};
}

Status DelayedShutdown::CallOff() {
  if (waiting_ == 0) return ErrorOf(ESRCH);
  const int result = kill(waiting_, SIGTERM);
  waiting_ = 0;
  if (result != 0) return ErrorOf(errno);
  return Done{};
}

}  // namespace platform::posix
