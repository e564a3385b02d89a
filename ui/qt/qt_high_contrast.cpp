#include "ui/qt/qt_high_contrast.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStandardPaths>

#ifdef QV_QT_DBUS
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#endif

namespace ui::qt {
namespace {

/// A setting as the desktop tells it to programs; invalid where there is no such desktop.
QVariant FromDesktop(const char* group, const char* key) {
#ifdef QV_QT_DBUS
  constexpr int kMilliseconds = 500;
  const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected() || !bus.interface()->isServiceRegistered(service)) return {};
  QDBusMessage read = QDBusMessage::createMethodCall(
      service, QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
  read << QString::fromLatin1(group) << QString::fromLatin1(key);
  QVariant value = bus.call(read, QDBus::Block, kMilliseconds).arguments().value(0);
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
#else
  static_cast<void>(group), static_cast<void>(key);
  return {};
#endif
}

QString ThemeOfDesktop() {
  const QString of_program = qEnvironmentVariable("GTK_THEME");
  if (!of_program.isEmpty()) return of_program;
  const QVariant told = FromDesktop("org.gnome.desktop.interface", "gtk-theme");
  if (told.isValid()) return told.toString();
  const QSettings file(
      QStandardPaths::locate(QStandardPaths::GenericConfigLocation, QStringLiteral("gtk-3.0/settings.ini")),
      QSettings::IniFormat);
  return file.value(QStringLiteral("Settings/gtk-theme-name")).toString();
}

QPalette BlackAndWhite(bool white_text) {
  const QColor paper = white_text ? Qt::black : Qt::white;
  const QColor ink = white_text ? Qt::white : Qt::black;
  QPalette palette(ink, paper, ink, ink, ink, ink, ink, paper, paper);
  palette.setColor(QPalette::Highlight, ink);
  palette.setColor(QPalette::HighlightedText, paper);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, Qt::gray);
  return palette;
}

}  // namespace

void FollowHighContrastOfDesktop() {
  const QString theme = ThemeOfDesktop();
  const bool by_theme = theme.startsWith(QLatin1String("HighContrast"));
  if (!by_theme && !FromDesktop("org.gnome.desktop.a11y.interface", "high-contrast").toBool()) return;
  const bool dark = theme.contains(QLatin1String("inverse"), Qt::CaseInsensitive) ||
                    theme.contains(QLatin1String("dark"), Qt::CaseInsensitive);
  QApplication::setPalette(BlackAndWhite(dark));
}

}  // namespace ui::qt
