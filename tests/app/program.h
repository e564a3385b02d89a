#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/frmMain.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_system.h"
#include "tests/app/program_texts.h"
#include "ui/headless/headless_front_end.h"

/// The whole program on a file system in memory, with a user whose hands a test moves.
namespace app::test {

class Program {
 public:
  Program() {
    files.AddFolder("/src");
    files.AddFolder("/dst");
    files.AddFolder("/home/user/.config");
  }

  frmMain& Start(const std::string& command_line = {}) {
    context.command_line = command_line;
    window = std::make_unique<frmMain>(context);
    window->Form_Load();
    return *window;
  }

  /// Saves a setup as the last run's, for the next Start().
  void SaveLastRun(const Setup& setup) {
    files.AddFolder("/home/user/.config/Quorvane");
    services::SaveSetupToFile(files, "/home/user/.config/Quorvane/qvr.usr", setup);
  }

  Setup SavedLastRun() {
    ui::headless::HeadlessFrontEnd other;
    ui::Form owner(other, "owner", ui::FormStyle::kMain);
    return services::LoadOperationFile({files, other.dialogs(), owner, texts, false},
                                       "/home/user/.config/Quorvane/qvr.usr")
        .setup;
  }

  Setup SourceAndTarget() const {
    Setup setup;
    setup.SourceFolder = "/src";
    setup.TargetFolder = "/dst";
    return setup;
  }

  std::string LastMessage() {
    return front_end.dialogs().asked.empty() ? "" : front_end.dialogs().asked.back().text;
  }

  platform::memory::MemoryFileSystem files;
  platform::memory::MemoryClock clock;
  platform::memory::MemoryLocale locale;
  platform::memory::MemorySettingsStore settings;
  platform::memory::MemoryShell shell;
  ui::headless::HeadlessFrontEnd front_end;
  text::ProgramTexts texts{EnglishTexts()};
  std::vector<std::string> printed;
  Context context{
      front_end, files, clock, locale, settings, shell, texts, {}, {}, true, [this](const std::string& line) {
        printed.push_back(line);
      }};
  std::unique_ptr<frmMain> window;
};

}  // namespace app::test
