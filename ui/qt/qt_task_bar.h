#pragma once

#include <optional>

namespace ui::qt {

/// Shows progress, 0 to 1, on the program's entry in the docks that know Unity's launcher signal (Ubuntu's
/// dock, KDE Plasma, Dash to Dock); others ignore it. None takes it away. Does nothing in a build without
/// Qt's D-Bus module. https://wiki.ubuntu.com/Unity/LauncherAPI
void ShowTaskProgress(std::optional<double> fraction);

}  // namespace ui::qt
