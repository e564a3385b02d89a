#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
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

constexpr int kExitFailed = 2;
constexpr int kExitRefused = 4;

/// Qt calls exit() by itself when its display is gone, with a number that would say that all is backed up.
bool has_ended = false;

void TellThatTheDisplayIsGone() {
  if (has_ended) return;
  std::fputs(
      "Quorvane ended because its display went away. If a backup was running, it was broken off: what it had "
      "copied is whole, the rest is not backed up yet. Start it again.\n",
      stderr);
  _exit(kExitFailed);  // threads are still at work: nothing may be taken down under them
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // whoever reads the report may go away; the backup goes on
  std::signal(SIGXFSZ, SIG_IGN);  // a copy beyond a limit of the user is a failure of that file alone
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
  std::atexit(TellThatTheDisplayIsGone);
  const int exit_code = program::Run({front_end, files, clock, locale, settings, shell}, command_line, false);
  has_ended = true;
  return exit_code;
}
