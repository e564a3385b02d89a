#include "ui/qt/qt_frame.h"

#include <QGroupBox>
#include <QPainter>
#include <QStyleOption>
#include <QWheelEvent>

#include "ui/qt/qt_text.h"

namespace ui::qt {
namespace {

/// QWheelEvent counts in eighths of a degree; the notch of a common wheel is 15 degrees.
constexpr double kUnitsOfANotch = 120;

class GroupBox : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent*) override {
    QStyleOptionFrame border;
    border.initFrom(this);
    border.state &= ~QStyle::State_HasFocus;
    const int heading = title().isEmpty() ? 0 : fontMetrics().height();
    border.rect = rect().adjusted(0, heading / 2, 0, 0);
    QPainter painter(this);
    const int indent = fontMetrics().height() / 2;
    const QRect text(2 * indent, 0, fontMetrics().size(Qt::TextShowMnemonic, title()).width(), heading);
    if (heading > 0) painter.setClipRegion(QRegion(rect()) - text.adjusted(-indent / 2, 0, indent / 2, 0));
    style()->drawPrimitive(QStyle::PE_FrameGroupBox, &border, &painter, this);
    painter.setClipping(false);
    style()->drawItemText(&painter, text, Qt::AlignLeft | Qt::TextShowMnemonic, palette(), isEnabled(),
                          title(), QPalette::WindowText);
  }
};

}  // namespace

FramePeer::FramePeer(Frame& frame) : WidgetPeer(frame, new GroupBox(ClientAround(frame))), frame_(frame) {}

void FramePeer::MirrorText() {
  static_cast<QGroupBox*>(widget())->setTitle(ToCaption(frame_.text(), frame_.access_key()));
}

bool FramePeer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel) {
    frame_.UserTurnedWheel(static_cast<QWheelEvent*>(event)->angleDelta().y() / kUnitsOfANotch);
  }
  return WidgetPeer::eventFilter(watched, event);
}

}  // namespace ui::qt
