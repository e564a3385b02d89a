#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/memory/memory_system.h"
#include "report/frmReport.h"
#include "report/main_window.h"
#include "ui/headless/headless_front_end.h"

namespace report {

/// A main window that remembers what it was told.
class FakeMain : public MainWindow {
 public:
  explicit FakeMain(ui::FrontEnd& front_end) : window(front_end, "frmMain", ui::FormStyle::kMain) {
    window.SetBounds({3'000, 300, 12'000, 9'000});
    window.Show();
  }

  ui::Form& Window() override { return window; }
  std::size_t ReportCapacity() const override { return capacity; }
  bool SuppressDetailedReports() const override { return suppress; }
  bool SnipFullReport() const override { return snip; }
  bool OperationRunning() const override { return running; }
  void RequestStop() override { stop = true; }
  bool StopRequested() const override { return stop; }
  void EnableOperationControls() override { ++enabled; }
  RunningCounts Counts() const override { return counts; }

  ui::Form window;
  std::size_t capacity = 61'440;
  bool suppress = false;
  bool snip = false;
  bool running = true;
  bool stop = false;
  int enabled = 0;
  RunningCounts counts;
};

/// The report window of a running operation.
struct ReportScene {
  ReportScene() {
    window.SetLineSink([this](const std::string& line) { lines.push_back(line); });
    window.BeginReport("Report", "/data", "/backup");
    front_end.RunPendingEvents();
  }

  /// Fills the box until it holds so many characters.
  void FillTo(std::size_t characters) {
    window.Output(std::string(characters - window.txbText.length(), 'x'), false);
  }

  ui::headless::HeadlessFrontEnd front_end;
  platform::memory::MemoryClock clock;
  text::ProgramTexts texts{"112 Copy all\n113 Copy selected\n"};
  FakeMain main{front_end};
  frmReport window{front_end, clock, texts, main};
  std::vector<std::string> lines;
};

}  // namespace report
