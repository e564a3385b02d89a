#include "ui/qt/qt_form.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QWindow>
#include <map>

#include "ui/controls.h"
#include "ui/qt/qt_controls.h"
#include "ui/qt/qt_look.h"
#include "ui/qt/qt_scale.h"
#include "ui/qt/qt_task_bar.h"
#include "ui/qt/qt_text.h"

namespace ui::qt {
namespace {

/// A border of one pixel and a title as high as most desktops have it.
constexpr QMargins kUsualFrame{1, 30, 1, 1};
/// Around a pop-up, which the desktop gives no border.
constexpr QMargins kPopUpBorder{1, 1, 1, 1};

Qt::WindowFlags FlagsOf(FormStyle style) {
  switch (style) {
    case FormStyle::kMain:
      return Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
             Qt::WindowCloseButtonHint;
    case FormStyle::kReport:
      return Qt::Window;
    case FormStyle::kDialog:
      return Qt::Dialog;
    case FormStyle::kPopUp:
      return Qt::ToolTip | Qt::WindowDoesNotAcceptFocus;  // no desktop gives a tool tip the focus
  }
  return Qt::Window;
}

/// The frame that the desktop was last seen to give a window of this style.
QMargins& SeenFrame(FormStyle style) {
  static std::map<FormStyle, QMargins> frames;
  return frames.try_emplace(style, style == FormStyle::kPopUp ? QMargins() : kUsualFrame).first->second;
}

QSize RoomFor(FormStyle style) {
  return QGuiApplication::primaryScreen()->availableGeometry().marginsRemoved(SeenFrame(style)).size();
}

QSize SmallestOf(const Form& form) {
  return {ToPixels(form.smallest().width), ToPixels(form.smallest().height)};
}

class FormWindow : public QWidget {
 public:
  explicit FormWindow(FormStyle style) : QWidget(nullptr, FlagsOf(style)) {}

  /// Set once the peer is complete; before that nothing is reported.
  void ReportTo(FormPeer* peer) { peer_ = peer; }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();  // the form decides, and hides the window
    // Not from in here: the form's answer may run events for long, and a window that is asked to close a
    // second time before this returns is taken off the screen without a question.
    QMetaObject::invokeMethod(
        peer_, [peer = peer_] { peer->form().UserClosed(); }, Qt::QueuedConnection);
  }

  void moveEvent(QMoveEvent*) override { peer_->WasMovedOrSized(); }
  void resizeEvent(QResizeEvent*) override { peer_->WasMovedOrSized(); }

  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::WindowStateChange) peer_->ChangedState();
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) peer_->form().UserActivated();
    QWidget::changeEvent(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    Form& form = peer_->form();
    const bool taken =
        !event->isAutoRepeat() &&
        ((enter && form.UserPressedEnter()) || (event->key() == Qt::Key_Escape && form.UserPressedEscape()));
    if (!taken) QWidget::keyPressEvent(event);
  }

  bool focusNextPrevChild(bool next) override {
    Form& form = peer_->form();
    Control* control = next ? form.AfterInTabOrder(form.focused()) : form.BeforeInTabOrder(form.focused());
    QWidget* widget = control != nullptr ? WidgetOf(*control) : nullptr;
    if (widget != nullptr) widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return widget != nullptr;
  }

  void paintEvent(QPaintEvent*) override {
    peer_->WasPainted();
    if (windowType() != Qt::ToolTip) return;
    QPainter painter(this);
    painter.setPen(Mix(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 0.5));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  FormPeer* peer_ = nullptr;
};

/// How the names of the parts begin that a scrolled area of Qt is made of.
constexpr char kPartOfScrolledArea[] = "qt_scrollarea_";

/// What the nearest control around a part is called, else the window.
QString NameAround(const QWidget& part) {
  const QWidget* around = part.parentWidget();
  while (around != nullptr && around->accessibleName().isEmpty()) around = around->parentWidget();
  return around != nullptr ? around->accessibleName() : part.window()->windowTitle();
}

/// Qt itself tells screen readers of no window what it is, nor of what only holds other things.
QAccessibleInterface* AccessibleWindow(const QString&, QObject* object) {
  auto* const window = dynamic_cast<FormWindow*>(object);
  if (window == nullptr) {
    const bool holds =
        object->isWidgetType() && object->objectName().startsWith(QLatin1String(kPartOfScrolledArea));
    if (!holds) return nullptr;
    auto* const part = static_cast<QWidget*>(object);
    return new QAccessibleWidget(part, QAccessible::Pane, NameAround(*part));
  }
  const bool dialog = window->windowType() == Qt::Dialog;
  return new QAccessibleWidget(window, dialog ? QAccessible::Dialog : QAccessible::Window);
}

}  // namespace

FormPeer::FormPeer(Form& form)
    : WidgetPeer(form, new FormWindow(form.style())), form_(form), client_(widget()) {
  QAccessible::installFactory(&AccessibleWindow);  // once is enough, and more is the same
  static_cast<FormWindow*>(widget())->ReportTo(this);
  const QSize needed = SmallestOf(form);
  if (needed != needed.boundedTo(RoomFor(form.style()))) MakeScroll(needed);
  if (form.style() != FormStyle::kPopUp) return;
  client_ = new QWidget(widget());
  widget()->setAttribute(Qt::WA_ShowWithoutActivating);
}

void FormPeer::MakeScroll(const QSize& needed) {
  scroll_ = new QScrollArea(widget());
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setWidgetResizable(true);
  client_ = new QWidget;
  client_->setObjectName(QLatin1String(kPartOfScrolledArea) + QStringLiteral("content"));
  client_->setMinimumSize(needed);
  scroll_->setWidget(client_);
  connect(qApp, &QApplication::focusChanged, scroll_, [this](QWidget*, QWidget* now) {
    if (now != nullptr && client_->isAncestorOf(now)) scroll_->ensureWidgetVisible(now);
  });
}

QSize FormPeer::InnerSize() const {
  return form_.style() == FormStyle::kPopUp ? client_->size() : widget()->size();
}

void FormPeer::MirrorText() { widget()->setWindowTitle(ToQString(form_.text())); }

void FormPeer::MirrorBounds() {
  const QRect wanted = ToPixels(form_.bounds());
  const bool moved = wanted.topLeft() != asked_for_.topLeft() || !widget()->testAttribute(Qt::WA_Moved);
  asked_for_ = wanted;
  place_again_ = moved && widget()->isVisible() && widget()->windowHandle()->frameMargins().isNull();
  const QSize size = asked_for_.marginsRemoved(SeenFrame(form_.style())).size().expandedTo({0, 0});
  if (moved) widget()->move(wanted.topLeft());
  if (form_.style() == FormStyle::kMain) {
    widget()->setFixedSize(size);
  } else {
    widget()->setMinimumSize(SmallestOf(form_).boundedTo(RoomFor(form_.style())));
    widget()->resize(size);
  }
  if (form_.style() == FormStyle::kPopUp)
    client_->setGeometry(QRect({0, 0}, size).marginsRemoved(kPopUpBorder));
  if (scroll_ != nullptr) scroll_->setGeometry(widget()->rect());
  form_.InnerSizeIs(ToTwips(InnerSize()));
}

/// A window that is moved while the desktop is about to give it a border ends up a border too far.
void FormPeer::WasPainted() {
  if (!place_again_ || widget()->windowHandle()->frameMargins().isNull()) return;
  place_again_ = false;
  widget()->move(asked_for_.topLeft());
}

void FormPeer::WasMovedOrSized() {
  if (scroll_ != nullptr) scroll_->setGeometry(widget()->rect());
  if (!widget()->isVisible() || widget()->isMinimized()) return;
  const QMargins frame = widget()->windowHandle()->frameMargins();
  if (!frame.isNull()) SeenFrame(form_.style()) = frame;
  if (place_again_) return form_.InnerSizeIs(ToTwips(InnerSize()));
  if (widget()->frameGeometry() != asked_for_) {
    asked_for_ = widget()->frameGeometry();
    form_.UserMoved(ToTwips(asked_for_));
  }
  form_.InnerSizeIs(ToTwips(InnerSize()));
}

void FormPeer::ChangedState() {
  form_.UserSetState(widget()->isMinimized() ? WindowState::kMinimised : WindowState::kNormal);
}

void FormPeer::MirrorVisible() {
  const bool was_visible = widget()->isVisible();
  if (!form_.visible()) {
    widget()->hide();
    // One that came back maximised would be painted in its normal size first, and in part never beyond that.
    widget()->setWindowState(widget()->windowState() & ~Qt::WindowMaximized);
    if (was_visible && form_.owner() != nullptr) widget()->activateWindow();
    return;
  }
  if (was_visible) return ComeForward();
  form_.ForEach([](Control& control) {
    if (auto* label = dynamic_cast<LabelPeer*>(control.peer())) label->FindBuddy();
  });
  ShowWithOwner();
}

void FormPeer::ShowWithOwner() {
  QWidget* owner = form_.owner() != nullptr ? WidgetOf(*form_.owner()) : nullptr;
  widget()->setWindowModality(form_.modal() ? Qt::ApplicationModal : Qt::NonModal);
  widget()->winId();  // makes the native window, which knows the window it belongs to
  widget()->windowHandle()->setTransientParent(owner != nullptr ? owner->windowHandle() : nullptr);
  widget()->show();
  form_.InnerSizeIs(ToTwips(InnerSize()));  // hidden, it may have got another size
}

/// Another program keeps the keyboard: only within this program does the window become the active one.
void FormPeer::ComeForward() {
  widget()->raise();
  const bool ours = QGuiApplication::applicationState() == Qt::ApplicationActive;
  if (ours && form_.style() != FormStyle::kPopUp) widget()->activateWindow();
}

void FormPeer::MirrorValue() { ShowTaskProgress(form_.task_progress()); }

/// Desktops give the keyboard to a window that comes back from the task bar, but not to one that is shown
/// with the wish to go without: so it is taken off the screen and shown anew.
void FormPeer::MirrorState() {
  if (form_.state() != WindowState::kNormal || !widget()->isMinimized()) return;
  widget()->hide();
  widget()->setWindowState(widget()->windowState() & ~Qt::WindowMinimized);
  // WA_ShowWithoutActivating becomes this property, but only when the native window is made.
  constexpr char kWithoutActivating[] = "_q_showWithoutActivating";
  widget()->windowHandle()->setProperty(kWithoutActivating, true);
  widget()->show();
  widget()->windowHandle()->setProperty(kWithoutActivating, false);
}

}  // namespace ui::qt
