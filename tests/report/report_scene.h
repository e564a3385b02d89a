#pragma once

#include <string>

#include "app/data/operation.h"
#include "platform/memory/memory_system.h"
#include "report/frmReport.h"
#include "report/main_window.h"
#include "tests/story.h"

namespace report {

inline constexpr auto kAll = app::Operation::kBackupAllFiles;
inline constexpr auto kModified = app::Operation::kBackupModifiedFiles;

/// The report window of a running operation, and its lines, each with "|" behind it. The main window that it
/// asks is the scene itself.
struct ReportScene : MainWindow {
  ReportScene() {
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
  /// What a step came to: the window, the lines that left it, what was asked, and what shows elsewhere.
  void Note(Story& story, const std::string& step) {
    std::string heard = std::exchange(lines, {}) + (stop ? " (to stop)" : "");
    for (const auto& box : std::exchange(front_end.dialogs().asked, {}))
      heard += " (" + box.kind + ") " + box.title + ": " + box.text;
    for (const std::string& note : std::exchange(front_end.notes, {})) heard += " (notice) " + note;
    for (const auto place : {window.height(), window.txbText.top(), window.txbText.bounds().bottom(),
                             window.lblFreeSpace.left(), window.cmdCopyToClipboard.left()})
      heard += " " + std::to_string(place);
    heard += " (task bar) " + std::to_string(window.task_progress().value_or(-1)) + " " +
             std::to_string(static_cast<int>(window.task_state())) + " (selected) " +
             std::to_string(window.txbText.selection().start) + " " + window.txbText.selected_text();
    story.Note(step, window, heard + "\n");
  }

  ui::Form& Window() override { return main; }
  bool PauseAfterFirstCopy() const override { return false; }
  bool OperationRunning() const override { return true; }
  void RequestStop() override { stop = true; }
  bool StopRequested() const override { return stop; }
  void EnableOperationControls() override {}
  void OpenTargetFolder() override { lines += "(target folder)|"; }

  bool stop = false;
  std::string lines;

  ui::headless::HeadlessFrontEnd front_end;
  platform::memory::MemoryClock clock;
  text::ProgramTexts texts{"112 Copy all\n113 Copy selected\n702 Lost:\n703 More:\n"};
  ui::Form main{front_end, "frmMain", ui::FormStyle::kMain};
  const bool main_is_shown = [this] {  // the report window takes its width
    main.SetBounds({3'000, 300, 12'000, 9'000});
    main.Show();
    return main.visible();
  }();
  frmReport window{front_end, clock, texts, *this};
};

}  // namespace report
