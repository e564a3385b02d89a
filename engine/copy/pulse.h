#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "engine/copy/hold.h"
#include "engine/listener/listener.h"
#include "platform/clock.h"

namespace engine {

/// Keeps the listener alive: lets it breathe and hear of the progress at most every 100 ms.
class Pulse {
 public:
  Pulse(platform::Clock& clock, Listener& listener, Hold::Now now = &Hold::Clock::now)
      : clock_(clock),
        listener_(listener),
        last_(clock.Monotonic()),
        hold_(std::make_shared<Hold>(std::move(now))) {}

  /// To be called between folders, files and blocks; `fraction` of the run is done. What rounding takes away
  /// or adds does not get through.
  void Beat(double fraction) {
    fraction_ = std::clamp(fraction, fraction_, 1.0);
    Beat();
  }

  /// So many bytes are done, those of files on their way included. Told with the next beat.
  void Copied(std::int64_t bytes) { copied_ = bytes; }
  void Compared(std::int64_t bytes) { compared_ = bytes; }

  /// Tells what is reached at once: the listener is about to show it for a while.
  void TellReached() { listener_.Progress({fraction_, copied_ + compared_}); }

  /// The run has come to its end.
  void Complete() { listener_.Progress({1.0, copied_ + compared_}); }

  bool IsDue() const { return clock_.Monotonic() - last_ >= std::chrono::milliseconds{100}; }

  void Beat() {
    if (!IsDue()) return;
    last_ = clock_.Monotonic();
    TellReached();
    Held([this] { listener_.Breathe(); });
  }

  void WriteLine(const std::string& line) {
    Held([&] { listener_.WriteLine(line); });
  }

  /// Makes a call of the listener in which the user may hold the run: copies rest until it is back. It must
  /// not wait for any.
  template <typename Call>
  void Held(const Call& call) {
    hold_->Begin();
    call();
    hold_->End();
  }

  /// Held while the user holds the run in a breath. Copies that were given up may outlive the run.
  const std::shared_ptr<Hold>& hold() const { return hold_; }

 private:
  platform::Clock& clock_;
  Listener& listener_;
  std::chrono::milliseconds last_;
  double fraction_ = 0;
  std::int64_t copied_ = 0;
  std::int64_t compared_ = 0;
  const std::shared_ptr<Hold> hold_;
};

}  // namespace engine
