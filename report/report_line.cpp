#include "report/report_line.h"

#include <utility>

namespace report {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

void ReportLine::Write(std::string_view text, bool new_line) {
  for (auto end = text.find(kLineEnd); end != std::string_view::npos; end = text.find(kLineEnd)) {
    line_ += text.substr(0, end);
    Complete();
    text.remove_prefix(end + kLineEnd.size());
  }
  line_ += text;
  if (!text.empty()) state_ = State::kOpen;
  if (new_line) Complete();
}

void ReportLine::LeaveOpen() {
  if (state_ == State::kOpen) state_ = State::kLeftOpen;
}

void ReportLine::TakeBack(std::string_view note) {
  if (!line_.ends_with(note)) return;
  line_.resize(line_.size() - note.size());
  if (line_.empty()) state_ = State::kClosed;
}

void ReportLine::Emptied() {
  if (state_ == State::kClosed) state_ = State::kEmpty;
}

void ReportLine::StartOver() {
  if (open()) Complete();
  state_ = State::kEmpty;
}

void ReportLine::Complete() {
  const std::string line = std::exchange(line_, {});
  state_ = State::kClosed;
  if (sink_) sink_(line);
}

}  // namespace report
