#include "engine/copy/report_order.h"

#include <utility>

namespace engine {

void ReportOrder::Tell(Act act) { Take({std::move(act)}); }

void ReportOrder::ReportEndOfFolder(Act act) { Take({std::move(act), true}); }

void ReportOrder::Hold() { acts_.emplace_back(); }

void ReportOrder::Settle(const Act& act) {
  acts_.pop_front();
  act();
  while (!acts_.empty() && acts_.front().act) {
    const Step step = std::move(acts_.front());
    acts_.pop_front();
    Do(step);
  }
}

void ReportOrder::GiveUp() {
  gives_up_ = true;
  std::deque<Step> acts = std::exchange(acts_, {});
  for (const Step& step : acts) {
    if (step.act) Do(step);
  }
}

void ReportOrder::Take(Step step) {
  if (!acts_.empty()) {
    acts_.push_back(std::move(step));
  } else {
    Do(step);
  }
}

void ReportOrder::Do(const Step& step) {
  if (is_closed_) return;
  step.act();
  is_closed_ = is_closed_ || (gives_up_ && step.ends_folder);
}

}  // namespace engine
