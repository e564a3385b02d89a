#pragma once

#include "ui/qt/qt_widget_peer.h"

namespace ui::qt {

/// The peer of something that is clicked. It tells of a focus that came by the mouse when that is let go,
/// just before the click: a message that the control left behind brings up would else come between press and
/// release, and take the release.
class LateFocusPeer : public WidgetPeer {
 protected:
  using WidgetPeer::WidgetPeer;

  /// To be called before the control is told of a click.
  void ReportFocus();
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool focus_waits_ = false;
};

}  // namespace ui::qt
