#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace report {

/// Receives every line of the report once, without its line end, as soon as the line is complete.
using LineSink = std::function<void(const std::string& line)>;

/// Follows what is written to the report and knows what state its last line is in. Lines end in CR LF.
class ReportLine {
 public:
  enum class State {
    kEmpty,     ///< nothing is written yet
    kClosed,    ///< the last thing written was a line end
    kOpen,      ///< there is something in the line
    kLeftOpen,  ///< the same, and the next text is meant to go on in it
  };

  State state() const { return state_; }
  bool open() const { return state_ == State::kOpen || state_ == State::kLeftOpen; }

  void SetSink(LineSink sink) { sink_ = std::move(sink); }

  void Write(std::string_view text, bool new_line);
  /// The open line is meant to stay open.
  void LeaveOpen();
  /// Takes a note back that was written to the open line; nothing when the line does not end in it.
  void TakeBack(std::string_view note);
  /// The lines written so far are no longer shown. An open line stays open: its end is still to come.
  void Emptied();
  /// A new report begins. An open line counts as complete.
  void StartOver();

 private:
  void Complete();

  State state_ = State::kEmpty;
  std::string line_;
  LineSink sink_;
};

}  // namespace report
