#pragma once

#include <QString>

namespace ui::qt {

/// A note of the desktop (org.freedesktop.Notifications), which takes the place of the one before. Does
/// nothing without a session bus, or without a service on it that shows notes; waits for neither.
void ShowNotification(const QString& title, const QString& text);

}  // namespace ui::qt
