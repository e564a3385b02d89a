#include "ui/qt/qt_task_bar.h"

#include "ui/qt/qt_look.h"

#ifdef QV_QT_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>
#endif

namespace ui::qt {

#ifdef QV_QT_DBUS
void ShowTaskProgress(std::optional<double> fraction) {
  static bool shown = false;
  if (!fraction && !shown) return;
  shown = fraction.has_value();
  QDBusMessage update = QDBusMessage::createSignal(
      QStringLiteral("/"), QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
  const QVariantMap properties{{QStringLiteral("progress"), fraction.value_or(0)},
                               {QStringLiteral("progress-visible"), shown}};
  update << QStringLiteral("application://%1.desktop").arg(QString::fromUtf8(kDesktopFile)) << properties;
  QDBusConnection::sessionBus().send(update);
}
#else
void ShowTaskProgress(std::optional<double> /*fraction*/) {}
#endif

}  // namespace ui::qt
