#include <string>

#include "main/program.h"
#include "platform/windows/clock.h"
#include "platform/windows/file_system.h"
#include "platform/windows/locale.h"
#include "platform/windows/settings_store.h"
#include "platform/windows/shell/shell.h"
#include "ui/headless/headless_front_end.h"
#include "ui/win32/front_end.h"

/// The program for Windows. Where nobody can see its windows, as in a task that runs "whether the user is
/// logged on or not", it still does an unattended run.
int main(int argc, char** argv) {
  platform::windows::WindowsFileSystem files;
  platform::windows::WindowsClock clock;
  platform::windows::WindowsLocale locale;
  platform::windows::WindowsShell shell;
  platform::windows::RegistryStore settings;
  const std::string command_line = program::CommandLine(argc, argv);
  // A window that nobody sees could never be closed, and the task scheduler starts no task that still runs.
  if (!command_line.empty() && !ui::win32::Win32FrontEnd::HasDisplay()) {
    ui::headless::HeadlessFrontEnd front_end;
    return program::Run({front_end, files, clock, locale, settings, shell}, command_line, true);
  }
  ui::win32::Win32FrontEnd front_end;
  return program::Run({front_end, files, clock, locale, settings, shell}, command_line, false);
}
