#include "report/run_progress.h"

#include <algorithm>
#include <cmath>

#include "text/str_proc.h"

namespace report {
namespace {

/// What a file costs beyond its bytes, in bytes.
constexpr double kCostOfAFile = 256 * 1024;
/// With less behind it the time left would be a guess.
constexpr std::chrono::seconds kLeastWorked{8};
constexpr double kLeastDone = 0.04;
constexpr int kDecimals = 2;

double CostOf(const Expected& work) {
  return static_cast<double>(work.bytes) + kCostOfAFile * static_cast<double>(work.files);
}

}  // namespace

void RunProgress::Reached(double fraction, std::int64_t bytes) {
  shares_ = fraction;
  bytes_ = bytes;
}

void RunProgress::Held(Time now) {
  Passed(now);
  seen_.reset();
}

void RunProgress::Passed(Time now) {
  if (seen_) worked_ += now - *seen_;
  seen_ = now;
}

/// What was counted may have changed since: only the end of the run is all of it.
double RunProgress::ByCount() const {
  constexpr double kNearlyAll = 0.99;
  return shares_ >= 1 ? 1 : std::min(CostOf(Done()) / CostOf(expected_), kNearlyAll);
}

double RunProgress::fraction() {
  fraction_ = std::max(fraction_, counted() ? ByCount() : shares_);
  return fraction_;
}

std::string RunProgress::Details() const {
  if (!counted()) return {};
  const auto size = [this](std::int64_t bytes) {
    return StrProc::FormatSizeKbMbGb(static_cast<double>(bytes), kDecimals, marks_);
  };
  const Expected done = Done();
  return text::GroupedNumber(done.files, marks_) + " of " + text::GroupedNumber(expected_.files, marks_) +
         " file" + StrProc::PluralSuffix(expected_.files) + ", " + size(done.bytes) + " of " +
         size(expected_.bytes);
}

std::string RunProgress::TimeLeft() const {
  constexpr double kMinute = 60;
  constexpr double kHour = 3'600;
  if ((!counted() && !by_shares_) || worked_ < kLeastWorked || fraction_ < kLeastDone || fraction_ >= 1)
    return {};
  const double seconds = std::chrono::duration<double>(worked_).count() * (1 - fraction_) / fraction_;
  if (seconds <= kMinute) return "less than a minute left";
  const bool hours = seconds >= 2 * kHour;
  const auto count = std::llround(std::ceil(seconds / (hours ? kHour : kMinute)));
  return "about " + std::to_string(count) + (hours ? " hours left" : " minutes left");
}

}  // namespace report
