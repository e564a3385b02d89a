#pragma once

#include "ui/control.h"
#include "ui/qt/qt_widget_peer.h"

namespace ui::qt {

/// A group box, with its heading in the border; without a heading the border goes around.
class FramePeer : public WidgetPeer {
 public:
  explicit FramePeer(Frame& frame);

 protected:
  void MirrorText() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Frame& frame_;
};

}  // namespace ui::qt
