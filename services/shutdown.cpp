#include "services/shutdown.h"

namespace services {
namespace {

constexpr int kPopUpWidth = 6000;
constexpr int kPopUpHeight = 1000;

}  // namespace

void ShutDownComputer(const ShutdownTools& tools, bool cancellable, std::chrono::milliseconds popUpTime) {
  if (!cancellable) return static_cast<void>(tools.shell.ScheduleShutDown({}));
  static_cast<void>(tools.shell.ScheduleShutDown("Cancellation possible.\r\nSee comment below"));
  tools.pop_up(
      "\r\nThis computer will shut down in about 30 seconds."
      "\r\nClick here to cancel the shutdown.",
      kPopUpWidth, kPopUpHeight, popUpTime);
  static_cast<void>(tools.shell.CallOffShutDown());
  tools.dialogs.Show(tools.owner, {"Shutdown cancelled", {}, ui::Icon::kNone});
}

}  // namespace services
