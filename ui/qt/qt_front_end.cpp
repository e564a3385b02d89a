#include "ui/qt/qt_front_end.h"

#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFile>
#include <QFontMetricsF>
#include <QIcon>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdio>

#include "ui/form.h"
#include "ui/qt/calm_style.h"
#include "ui/qt/qt_clipboard.h"
#include "ui/qt/qt_controls.h"
#include "ui/qt/qt_dialogs.h"
#include "ui/qt/qt_form.h"
#include "ui/qt/qt_frame.h"
#include "ui/qt/qt_high_contrast.h"
#include "ui/qt/qt_look.h"
#include "ui/qt/qt_notification.h"
#include "ui/qt/qt_scale.h"
#include "ui/qt/qt_text.h"
#include "ui/qt/qt_text_box.h"
#include "ui/qt/qt_timer.h"

namespace ui::qt {
namespace {

constexpr unsigned kSecondsToAnswer = 20;

/// Ends this process: with 0 when Qt reaches its display.
[[noreturn]] void TryDisplay(int argc, char** argv) {
  std::signal(SIGABRT, [](int) { _exit(1); });  // Qt's way out, without a core file
  alarm(kSecondsToAnswer);
  if (std::freopen("/dev/null", "w", stderr) == nullptr) _exit(1);
  const QGuiApplication application(argc, argv);
  _exit(QGuiApplication::primaryScreen() == nullptr ? 1 : 0);
}

/// Whether nobody sits before what the environment makes Qt draw on, whatever display there is besides.
bool DrawsForNobody() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  return platform.startsWith("offscreen") || platform.startsWith("minimal") || platform.startsWith("vnc");
}

bool IsDisplayNamed() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    if (!qEnvironmentVariableIsEmpty(variable)) return true;
  }
  return false;
}

}  // namespace

bool QtFrontEnd::HasDisplay(int argc, char** argv) {
  if (DrawsForNobody() || !IsDisplayNamed()) return false;
  const pid_t child = fork();
  if (child == 0) TryDisplay(argc, argv);
  int end = 0;
  while (child > 0 && waitpid(child, &end, 0) < 0 && errno == EINTR) {
  }
  return end == 0;
}

QtFrontEnd::QtFrontEnd(int& argc, char** argv) {
  if (QCoreApplication::instance() == nullptr) application_ = std::make_unique<QApplication>(argc, argv);
  QApplication::setStyle(new CalmStyle);  // the application owns it
  FollowHighContrastOfDesktop();
  QApplication::setQuitOnLastWindowClosed(false);
  QGuiApplication::setDesktopFileName(kDesktopFile);
  QGuiApplication::setWindowIcon(QIcon::fromTheme(kDesktopFile, QIcon(":/quorvane.png")));
  dialogs_ = std::make_unique<QtDialogs>(*this);
  clipboard_ = std::make_unique<QtClipboard>();
}

QtFrontEnd::~QtFrontEnd() = default;

std::unique_ptr<Peer> QtFrontEnd::CreatePeer(Form& form) { return std::make_unique<FormPeer>(form); }
std::unique_ptr<Peer> QtFrontEnd::CreatePeer(Frame& frame) { return std::make_unique<FramePeer>(frame); }
std::unique_ptr<Peer> QtFrontEnd::CreatePeer(Button& button) { return std::make_unique<ButtonPeer>(button); }
std::unique_ptr<Peer> QtFrontEnd::CreatePeer(Label& label) { return std::make_unique<LabelPeer>(label); }
std::unique_ptr<Peer> QtFrontEnd::CreatePeer(CheckBox& box) { return std::make_unique<CheckBoxPeer>(box); }

std::unique_ptr<Peer> QtFrontEnd::CreatePeer(DropDownList& list) {
  return std::make_unique<DropDownListPeer>(list);
}

std::unique_ptr<Peer> QtFrontEnd::CreatePeer(ProgressBar& bar) {
  return std::make_unique<ProgressBarPeer>(bar);
}

std::unique_ptr<Peer> QtFrontEnd::CreatePeer(ScrollBar& bar) { return std::make_unique<ScrollBarPeer>(bar); }

std::unique_ptr<Peer> QtFrontEnd::CreatePeer(TextBox& box) {
  if (box.lines() == TextBox::Lines::kMany) return std::make_unique<ManyLinesPeer>(box);
  return std::make_unique<OneLinePeer>(box);
}

std::unique_ptr<Peer> QtFrontEnd::CreatePeer(Timer& timer) { return std::make_unique<TimerPeer>(timer); }

void QtFrontEnd::RunPendingEvents() { QCoreApplication::processEvents(); }

void QtFrontEnd::WaitForEvents(std::chrono::milliseconds longest) {
  if (longest.count() > 0) {
    QTimer wake_up;
    wake_up.start(longest);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QCoreApplication::processEvents();
}

int QtFrontEnd::Run() {
  if (!quitting()) {
    QEventLoop loop;
    run_loop_ = &loop;
    loop.exec();
    run_loop_ = nullptr;
  }
  return exit_code_.value_or(0);
}

void QtFrontEnd::Quit(int exit_code) {
  exit_code_ = exit_code;
  dialogs_->CloseAll();
  if (run_loop_ != nullptr) run_loop_->exit();
}

void QtFrontEnd::RunModal(Form& form) {
  while (form.visible() && !quitting()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtFrontEnd::Notify(Form& form, const std::string& title, const std::string& text) {
  if (QGuiApplication::applicationState() == Qt::ApplicationActive) return;
  if (QWidget* window = WidgetOf(form)) QApplication::alert(window);
  ShowNotification(ToQString(title), ToQLines(text));
}

void QtFrontEnd::OpenFolder(const std::string& path) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

Size QtFrontEnd::screen() const {
  return ToTwips(QGuiApplication::primaryScreen()->availableGeometry().size());
}

Twips QtFrontEnd::TextWidth(const std::string& text, const Font& font) const {
  return ToTwips(
      static_cast<int>(std::ceil(QFontMetricsF(ToQFont(font)).horizontalAdvance(ToQString(text)))));
}

Dialogs& QtFrontEnd::dialogs() { return *dialogs_; }
Clipboard& QtFrontEnd::clipboard() { return *clipboard_; }

}  // namespace ui::qt
