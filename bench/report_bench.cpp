#include <benchmark/benchmark.h>

#include "platform/memory/memory_system.h"
#include "report/frmReport.h"
#include "report/main_window.h"
#include "ui/headless/headless_front_end.h"

/// What a line of the report costs, by how much is in the text box already.
namespace {

class MainOfARun : public report::MainWindow {
 public:
  explicit MainOfARun(ui::FrontEnd& front_end) : window_(front_end, "frmMain", ui::FormStyle::kMain) {}
  ui::Form& Window() override { return window_; }
  bool PauseAfterFirstCopy() const override { return false; }
  bool OperationRunning() const override { return true; }
  void RequestStop() override {}
  bool StopRequested() const override { return false; }
  void EnableOperationControls() override {}

 private:
  ui::Form window_;
};

void AppendALine(benchmark::State& state) {
  ui::headless::HeadlessFrontEnd front_end;
  platform::memory::MemoryClock clock;
  const text::ProgramTexts texts("112 Copy all\n113 Copy selected\n");
  MainOfARun main(front_end);
  report::frmReport window(front_end, clock, texts, main);
  window.ReportCapacity = std::size_t{1} << 30;
  window.BeginReport(
      {.title = "Report", .source_folder = "/home/ada/Documents", .target_folder = "/media/ada/Backup"});
  window.Output(std::string(static_cast<std::size_t>(state.range(0)), 'x'), true);
  const std::string line = "12 files of 48, 4.31 Mb. Letters and other papers/2024. Copied.";
  for ([[maybe_unused]] auto _ : state) window.Output(line, true);
}

}  // namespace

BENCHMARK(AppendALine)->Arg(0)->Arg(10'000)->Arg(60'000)->Iterations(500);
