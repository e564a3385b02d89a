#include "ui/qt/qt_widget_peer.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QWheelEvent>

#include "ui/form.h"
#include "ui/qt/qt_look.h"
#include "ui/qt/qt_scale.h"
#include "ui/qt/qt_text.h"

namespace ui::qt {
namespace {

/// The key as a window is offered it; empty for one that it is not.
std::optional<KeyPress> PressOf(const QKeyEvent& event) {
  const bool shift = (event.modifiers() & Qt::ShiftModifier) != 0;
  if (event.key() == Qt::Key_F && event.modifiers() == Qt::ControlModifier) return KeyPress{Key::kFind};
  if ((event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Up:
      return KeyPress{Key::kUp};
    case Qt::Key_Down:
      return KeyPress{Key::kDown};
    case Qt::Key_PageUp:
      return KeyPress{Key::kPageUp};
    case Qt::Key_PageDown:
      return KeyPress{Key::kPageDown};
    case Qt::Key_Home:
      return KeyPress{Key::kHome};
    case Qt::Key_End:
      return KeyPress{Key::kEnd};
    case Qt::Key_F3:
      return KeyPress{Key::kF3, {}, shift};
    case Qt::Key_F8:
      return KeyPress{Key::kF8, {}, shift};
    default:
      break;
  }
  const QString text = event.text();
  const bool is_blank = text == QLatin1String(" ");
  if (text.isEmpty() || !text[0].isPrint() || (text[0].isSpace() && !is_blank)) return std::nullopt;
  return KeyPress{Key::kCharacter, FromQString(text)};
}

}  // namespace

QWidget* ClientAround(const Control& control) {
  if (control.parent() == nullptr) return nullptr;
  auto* peer = dynamic_cast<WidgetPeer*>(control.parent()->peer());
  return peer != nullptr ? peer->client() : nullptr;
}

QWidget* WidgetOf(const Control& control) {
  auto* peer = dynamic_cast<WidgetPeer*>(control.peer());
  return peer != nullptr ? peer->widget() : nullptr;
}

WidgetPeer::WidgetPeer(Control& control, QWidget* widget, Background background)
    : control_(control), widget_(widget), background_(background) {
  widget_->setObjectName(ToQString(control.name()));
  Watch(widget_);
}

WidgetPeer::~WidgetPeer() { delete widget_; }

void WidgetPeer::Watch(QWidget* part) {
  part->installEventFilter(this);
  part->setMouseTracking(true);
}

void WidgetPeer::MirrorEnabled() { widget_->setEnabled(control_.enabled()); }
void WidgetPeer::MirrorBounds() { widget_->setGeometry(ToPixels(control_.bounds())); }
void WidgetPeer::MirrorVisible() { widget_->setVisible(control_.visible()); }
void WidgetPeer::MirrorFont() { widget_->setFont(ToQFont(control_.font())); }

void WidgetPeer::MirrorHelp() {
  widget_->setToolTip(ToPlainTip(control_.tool_tip()));
  MirrorSpokenName();
  widget_->setAccessibleDescription(
      ToQLines(control_.description().empty() ? control_.tool_tip() : control_.description()));
  MirrorAccessKey();
  MirrorText();
}

void WidgetPeer::MirrorSpokenName() { widget_->setAccessibleName(ToQLines(control_.spoken_name())); }

/// Qt itself listens to the letters that are marked in a caption; the others are asked for here.
void WidgetPeer::MirrorAccessKey() {
  if (shortcut_ != 0) widget_->releaseShortcut(shortcut_);
  shortcut_ = 0;
  const char key = control_.access_key();
  if (key == 0) return;
  shortcut_ =
      widget_->grabShortcut(QKeySequence(Qt::ALT | Qt::Key(std::toupper(static_cast<unsigned char>(key)))));
}

void WidgetPeer::MirrorColours() {
  const bool own = control_.colours().has_value() && !IsHighContrast();
  const auto palette_for = background_ == Background::kItself ? ControlPalette : WindowPalette;
  const QColor around = widget_->window()->palette().color(QPalette::Highlight);
  widget_->setPalette(own ? palette_for(*control_.colours(), around) : QPalette());
  widget_->setAutoFillBackground(own);
}

void WidgetPeer::Repaint() {
  if (widget_->isVisible()) widget_->repaint();
}

bool WidgetPeer::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::FocusIn:
      control_.UserFocused();
      break;
    case QEvent::Enter:
    case QEvent::MouseMove:
      control_.UserMovedPointer();
      break;
    case QEvent::Leave:
      control_.UserMovedPointerAway();
      break;
    case QEvent::KeyPress:
      // A key that the widget leaves alone comes to the window as well: it is offered once, by the focused
      // one.
      if (watched == QApplication::focusWidget()) {
        const auto press = PressOf(*static_cast<QKeyEvent*>(event));
        if (press && control_.form().UserPressedKey(*press)) return true;
      }
      break;
    case QEvent::Shortcut:
      return control_.form().UserPressedAccessKey(control_.access_key());
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace ui::qt
