#pragma once

#include "ui/controls.h"
#include "ui/win32/controls/native_window.h"

namespace ui::win32 {

/// A timer of the system. The system holds no more than one tick of it back.
class TimerPeer : public Peer {
 public:
  explicit TimerPeer(Timer& timer);

 protected:
  void MirrorValue() override;

 private:
  Timer& timer_;
  NativeWindow window_;  ///< never seen; it only gets the ticks
};

}  // namespace ui::win32
