#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/data/operation.h"
#include "platform/memory/memory_system.h"
#include "report/frmReport.h"
#include "report/main_window.h"
#include "ui/headless/headless_front_end.h"

namespace report {

inline constexpr auto kAll = app::Operation::kBackupAllFiles;
inline constexpr auto kModified = app::Operation::kBackupModifiedFiles;

/// The report window of a running operation, and its lines, each with "|" behind it. The main window that it
/// asks is the scene itself.
struct ReportScene : MainWindow {
  ReportScene() {
    main.SetBounds({3'000, 300, 12'000, 9'000});
    main.Show();
    window.SetLineSink([this](const std::string& line) { lines += line + "|"; });
    Begin({});
    front_end.RunPendingEvents();
  }
  void Begin(ReportSubject subject) {
    subject.title = "Report";
    subject.source_folder = "/data";
    subject.target_folder = "/backup";
    subject.copies_files = true;
    window.BeginReport(std::move(subject));
  }
  void FillTo(std::size_t characters) {
    window.Output(std::string(characters - window.txbText.length(), 'x'), false);
  }
  void Click(ui::Button& button) {
    front_end.Post([&button] { ui::headless::Click(button); });
  }

  ui::Form& Window() override { return main; }
  bool PauseAfterFirstCopy() const override { return false; }
  bool OperationRunning() const override { return running; }
  void RequestStop() override { stop = true; }
  bool StopRequested() const override { return stop; }
  void EnableOperationControls() override { ++enabled; }

  bool running = true, stop = false;
  int enabled = 0;
  std::string lines;

  ui::headless::HeadlessFrontEnd front_end;
  platform::memory::MemoryClock clock;
  text::ProgramTexts texts{"112 Copy all\n113 Copy selected\n702 Lost:\n703 More:\n"};
  ui::Form main{front_end, "frmMain", ui::FormStyle::kMain};
  frmReport window{front_end, clock, texts, *this};
};

}  // namespace report
