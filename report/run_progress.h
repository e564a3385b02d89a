#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "text/grouped_number.h"

namespace report {

/// What is to be copied or compared in a run, as far as it was counted before.
struct Expected {
  std::int64_t files = 0;  ///< 0: nobody has counted
  std::int64_t bytes = 0;
};

/// How far a run has come: by what was counted before it began, else by the shares that its folders have of
/// it. Times are those of a clock that only goes forward.
class RunProgress {
 public:
  using Time = std::chrono::milliseconds;

  /// Where nobody has counted, the time left is told only when `by_shares` says that the run reads
  /// everything, and so that its time goes with them.
  RunProgress(Expected expected, const text::NumberMarks& marks, bool by_shares = false)
      : expected_(expected), marks_(marks), by_shares_(by_shares) {}

  /// How far the walk is, 0 to 1, and how many bytes are done, those of half-done files included.
  void Reached(double fraction, std::int64_t bytes);
  /// How many files are done.
  void Copied(std::int64_t files) { copied_ = files; }
  void Compared(std::int64_t files) { compared_ = files; }
  /// The run is held from now on; it goes on with the next Passed().
  void Held(Time now);
  void Passed(Time now);
  /// For how long it has not been held.
  Time worked() const { return worked_; }

  /// 0 to 1; never less than before.
  double fraction();
  /// "12 of 300 files, 1.20 Mb of 3.40 Mb"; empty where nobody has counted.
  std::string Details() const;
  /// "about 3 minutes left"; empty until it can be said.
  std::string TimeLeft() const;

 private:
  bool counted() const { return expected_.files > 0; }
  double ByCount() const;
  Expected Done() const { return {copied_ + compared_, bytes_}; }

  Expected expected_;
  std::int64_t copied_ = 0;
  std::int64_t compared_ = 0;
  std::int64_t bytes_ = 0;
  text::NumberMarks marks_;
  bool by_shares_ = false;
  double shares_ = 0;
  double fraction_ = 0;
  Time worked_{0};
  std::optional<Time> seen_;  ///< when the run was last seen at work; none while it is held
};

}  // namespace report
