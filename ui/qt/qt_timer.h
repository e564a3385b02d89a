#pragma once

#include <QTimer>

#include "ui/controls.h"

namespace ui::qt {

class TimerPeer : public Peer {
 public:
  explicit TimerPeer(Timer& timer) : timer_(timer) {
    QObject::connect(&ticker_, &QTimer::timeout, &ticker_, [this] { timer_.Tick(); });
  }

 protected:
  void MirrorValue() override {
    if (timer_.running()) {
      ticker_.start(timer_.interval());
    } else {
      ticker_.stop();
    }
  }

 private:
  Timer& timer_;
  QTimer ticker_;
};

}  // namespace ui::qt
