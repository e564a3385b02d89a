#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "platform/shell.h"
#include "ui/dialogs.h"

namespace services {

/// Shows a message over the main window for so long and returns when it is closed: by a click,
/// by a key, or at the end of its time. Width and height in twips.
using PopUpInForm2 =
    std::function<void(const std::string& message, int width, int height, std::chrono::milliseconds time)>;

struct ShutdownTools {
  platform::Shell& shell;
  ui::Dialogs& dialogs;
  ui::Form& owner;
  PopUpInForm2 pop_up;
};

/// Has the system's own command switch the computer off. When `cancellable`, a message is shown over the main
/// window for `popUpTime` meanwhile; as soon as it closes the shutdown is called off. The
/// system's delay of about 30 seconds is meant to be the shorter one, so that only a click comes before it.
/// Whether the commands work is not looked at.
void ShutDownComputer(const ShutdownTools& tools, bool cancellable, std::chrono::milliseconds popUpTime);

}  // namespace services
