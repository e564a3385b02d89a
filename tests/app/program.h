#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/main_window/frmMain.h"
#include "platform/memory/memory_system.h"
#include "tests/story.h"
#include "tests/tree.h"
#include "text/built_in.h"

namespace app::test {

using namespace std::chrono_literals;

/// The whole program on a file system in memory with /src and /dst, and a user whose hands a test moves.
class Program {
 public:
  explicit Program(const std::vector<std::string>& entries = {}) {
    front_end.screen_size = fit::kSmallestScreen;
    tree::Add(files, {"/src/", "/dst/", "/home/user/.config/"});
    tree::Add(files, entries);
    setup.SourceFolder = "/src";
    setup.TargetFolder = "/dst";
  }

  frmMain& Start(const std::string& command_line = {}) {
    context.command_line = command_line;
    window = std::make_unique<frmMain>(context);
    window->Form_Load();
    return *window;
  }
  /// Starts with `setup` as that of the last run.
  frmMain& StartWithSetup(const std::string& command_line = {}) {
    files.AddFolder("/home/user/.config/Quorvane");
    services::SaveSetupToFile(files, kLastRun, setup);
    return Start(command_line);
  }

  /// Lets the user act whenever a window of that kind stands open above the others and has read what it
  /// shows.
  template <typename Window>
  void InOpenWindow(const std::function<void(Window&)>& act) {
    front_end.when_idle = [this, act] {
      auto* const open = dynamic_cast<Window*>(front_end.modal);
      if (open == nullptr || open->tmrRead.running()) return front_end.PassTime(1ms);
      act(*open);
    };
  }
  /// Setup, one of its commands, and one of that one's.
  void PressInSetup(ui::Button& first, ui::Button& second) {
    window->Clock2_Timer();
    for (ui::Button* button : {&window->cmdSetup, &first, &second}) ui::headless::Click(*button);
  }
  void SaveForNextRun() {
    PressInSetup(window->setup_commands.cmdSaveSetup, window->setup_commands.cmdSaveSetupForNextRun);
  }
  /// Does something whenever a copy begins.
  void WhenACopyBegins(std::function<void()> act) {
    files.Before([act](platform::memory::Call call, const std::string&) {
      if (call == platform::memory::Call::kCopyFile) act();
    });
  }
  /// All that was said, printed, notified, opened and handed to the shell since this was asked before.
  std::string Heard() {
    std::string heard;
    for (const auto& box : std::exchange(dialogs.asked, {}))
      heard += "(" + box.kind + ") " + box.title + ": " + box.text + "\n";
    for (auto* lines : {&printed, &front_end.notes, &front_end.opened_folders, &shell.shut_downs})
      for (const std::string& line : std::exchange(*lines, {})) heard += "> " + line + "\n";
    return heard;
  }
  std::string Text(int number) { return texts.GetProgramText(number); }

  static constexpr const char* kLastRun = "/home/user/.config/Quorvane/qvr.usr";
  platform::memory::MemoryFileSystem files;
  platform::memory::MemoryClock clock;
  platform::memory::MemoryLocale locale;
  platform::memory::MemorySettingsStore settings;
  platform::memory::MemoryShell shell;
  ui::headless::HeadlessFrontEnd front_end;
  ui::headless::HeadlessDialogs& dialogs = front_end.dialogs();
  text::ProgramTexts texts{text::EnglishTexts()};
  std::vector<std::string> printed;
  Context context{
      front_end, files, clock, locale, settings, shell, texts, {}, {}, true, [this](const std::string& line) {
        printed.push_back(line);
      }};
  Setup setup;
  std::unique_ptr<frmMain> window;
};

}  // namespace app::test
