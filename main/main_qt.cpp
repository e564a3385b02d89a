#include <csignal>
#include <cstdio>
#include <string>

#include "base/program_name.h"
#include "main/program.h"
#include "platform/path.h"
#include "platform/posix/clock.h"
#include "platform/posix/file_system.h"
#include "platform/posix/locale.h"
#include "platform/posix/settings_store.h"
#include "platform/posix/shell/shell.h"
#include "ui/headless/headless_front_end.h"
#include "ui/qt/qt_front_end.h"

/// The program for Linux desktops. Without a display it still does an unattended run.

namespace {

constexpr int kExitRefused = 4;

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // whoever reads the report may go away; the backup goes on
  const std::string command_line = program::CommandLine(argc, argv);
  const bool has_display = ui::qt::QtFrontEnd::HasDisplay(argc, argv);
  if (!has_display && command_line.empty()) {
    std::fputs(
        "Quorvane needs a display to open its windows. Started with any word on its command line, it backs "
        "up "
        "without one.\n",
        stderr);
    return kExitRefused;
  }
  platform::posix::PosixFileSystem files;
  platform::posix::PosixClock clock;
  platform::posix::PosixLocale locale;
  platform::posix::PosixShell shell;
  platform::posix::FileSettingsStore settings(
      platform::JoinPath(platform::JoinPath(shell.ApplicationDataFolder(), base::kProgramName), "settings"));

  if (!has_display) {
    ui::headless::HeadlessFrontEnd front_end;
    return program::Run({front_end, files, clock, locale, settings, shell}, command_line, true);
  }
  ui::qt::QtFrontEnd front_end(argc, argv);
  return program::Run({front_end, files, clock, locale, settings, shell}, command_line, false);
}
