#include "ui/qt/qt_notification.h"

#include "ui/qt/qt_look.h"

#ifdef QV_QT_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>
#endif

namespace ui::qt {

#ifdef QV_QT_DBUS
void ShowNotification(const QString& title, const QString& text) {
  static uint last = 0;  // 0: none
  constexpr int kAsLongAsTheDesktopLikes = -1;
  const QString name = QStringLiteral("org.freedesktop.Notifications");
  QDBusMessage note = QDBusMessage::createMethodCall(name, QStringLiteral("/org/freedesktop/Notifications"),
                                                     name, QStringLiteral("Notify"));
  const QVariantMap hints{{QStringLiteral("desktop-entry"), QString::fromUtf8(kDesktopFile)}};
  // Some desktops read markup in the text.
  note << QStringLiteral("Quorvane") << last << QString::fromUtf8(kDesktopFile) << title
       << text.toHtmlEscaped() << QStringList() << hints << kAsLongAsTheDesktopLikes;
  auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(note));
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, [answer] {
    const QDBusPendingReply<uint> number = *answer;
    last = number.isValid() ? number.value() : 0;
    answer->deleteLater();
  });
}
#else
void ShowNotification(const QString& /*title*/, const QString& /*text*/) {}
#endif

}  // namespace ui::qt
