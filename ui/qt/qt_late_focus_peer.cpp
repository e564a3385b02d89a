#include "ui/qt/qt_late_focus_peer.h"

#include <QFocusEvent>
#include <utility>

namespace ui::qt {

void LateFocusPeer::ReportFocus() {
  if (std::exchange(focus_waits_, false)) control().UserFocused();
}

bool LateFocusPeer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn &&
      static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason) {
    focus_waits_ = true;
    return false;
  }
  // The click comes first. There is none when the mouse was moved off meanwhile.
  if (event->type() == QEvent::MouseButtonRelease)
    QMetaObject::invokeMethod(
        this, [this] { ReportFocus(); }, Qt::QueuedConnection);
  return WidgetPeer::eventFilter(watched, event);
}

}  // namespace ui::qt
