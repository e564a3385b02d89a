#include "services/shutdown.h"

namespace services {
namespace {

constexpr const char* kCommand = "shutdown";
constexpr int kPopUpWidth = 6000;
constexpr int kPopUpHeight = 1000;

}  // namespace

void ShutDownComputer(const ShutdownTools& tools, bool cancellable, int popUpTime) {
  const auto run = [&](const std::string& parameters) {
    static_cast<void>(tools.shell.RunSystemCommand(kCommand, parameters).ok());
  };
  if (!cancellable) return run("/s");
  run("/s /c \"Cancellation possible.\r\nSee comment below\"");
  tools.pop_up(
      "\r\nThis computer will shut down in about 30 seconds."
      "\r\nClick here to cancel the shutdown.",
      kPopUpWidth, kPopUpHeight, popUpTime);
  run("/a");
  tools.dialogs.Show(tools.owner, {"Shutdown cancelled", {}, ui::Icon::kNone});
}

}  // namespace services
