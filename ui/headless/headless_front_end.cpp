#include "ui/headless/headless_front_end.h"

#include <algorithm>
#include <utility>

#include "base/utf8.h"
#include "ui/controls.h"
#include "ui/form.h"

namespace ui::headless {

using std::chrono::milliseconds;
namespace {

/// What border and title take from a window.
constexpr Size kFrame{240, 585};

class FormPeer : public Peer {
 public:
  FormPeer(HeadlessFrontEnd& front_end, Form& form) : front_end_(front_end), form_(form) {}

 protected:
  void MirrorBounds() override {
    const Size frame = form_.style() == FormStyle::kPopUp ? Size{} : kFrame;
    form_.InnerSizeIs({std::max(form_.width() - frame.width, 0), std::max(form_.height() - frame.height, 0)});
  }
  void MirrorVisible() override {
    if (!form_.visible()) return;
    front_end_.Post([this, alive = std::weak_ptr(alive_)] {
      if (!alive.expired()) form_.UserActivated();
    });
  }

 private:
  HeadlessFrontEnd& front_end_;
  Form& form_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>();
};

}  // namespace

class TimerPeer : public Peer {
 public:
  TimerPeer(HeadlessFrontEnd& front_end, Timer& timer) : front_end_(front_end), timer_(timer) {
    front_end_.timers_.push_back(this);
  }
  ~TimerPeer() override { std::erase(front_end_.timers_, this); }

  bool running() const { return timer_.running(); }
  /// Until the next tick.
  milliseconds left() const { return left_; }

  void Pass(milliseconds time) {
    left_ -= time;
    if (left_.count() > 0) return;
    left_ = timer_.interval();
    if (waiting_.use_count() > 1) return;  // the last tick has not been handled yet
    front_end_.Post([this, waiting = waiting_, alive = std::weak_ptr(alive_)] {
      if (!alive.expired()) timer_.Tick();
    });
  }

 protected:
  void MirrorValue() override { left_ = timer_.interval(); }

 private:
  HeadlessFrontEnd& front_end_;
  Timer& timer_;
  milliseconds left_{0};
  std::shared_ptr<bool> alive_ = std::make_shared<bool>();
  std::shared_ptr<bool> waiting_ = std::make_shared<bool>();  ///< shared by the tick that is posted
};

std::unique_ptr<Peer> HeadlessFrontEnd::CreatePeer(Form& form) {
  return std::make_unique<FormPeer>(*this, form);
}

std::unique_ptr<Peer> HeadlessFrontEnd::CreatePeer(Timer& timer) {
  return std::make_unique<TimerPeer>(*this, timer);
}

void HeadlessFrontEnd::RunPosted() {
  // A handler may run events itself: those posted before this call end with the same number all the same.
  const std::size_t end = events_begun_ + events_.size();
  while (events_begun_ < end) {
    const std::function<void()> event = std::move(events_.front());
    events_.pop_front();
    ++events_begun_;
    event();
  }
}

void HeadlessFrontEnd::RunPendingEvents() {
  ++pending_runs;
  if (!events_.empty()) {
    RunPosted();
  } else if (when_idle) {
    const std::function<void()> copy = when_idle;
    copy();
  }
}

void HeadlessFrontEnd::WaitForEvents(milliseconds longest) {
  if (events_.empty()) PassTime(longest);
  RunPendingEvents();
}

int HeadlessFrontEnd::Run() {
  while (!quitting() && HasWork()) RunPendingEvents();
  return exit_code_.value_or(0);
}

void HeadlessFrontEnd::Quit(int exit_code) { exit_code_ = exit_code; }

void HeadlessFrontEnd::RunModal(Form& form) {
  Form* const below = std::exchange(modal, &form);
  while (form.visible() && !quitting() && HasWork()) RunPendingEvents();
  modal = below;
}

Twips HeadlessFrontEnd::TextWidth(const std::string& text, const Font& font) const {
  const int per_character = font.points * (font.bold ? 12 : 11);  // about half of the height, in twentieths
  return static_cast<Twips>(base::utf8::Length(text)) * per_character;
}

void HeadlessFrontEnd::PassTime(milliseconds time) {
  while (time.count() > 0) {
    milliseconds step = time;
    for (const TimerPeer* timer : timers_) {
      if (timer->running()) step = std::min(step, timer->left());
    }
    for (TimerPeer* timer : timers_) {
      if (timer->running()) timer->Pass(step);
    }
    time -= step;
    RunPosted();
  }
}

}  // namespace ui::headless
