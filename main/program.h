#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/settings_store.h"
#include "platform/shell.h"
#include "ui/front_end.h"

namespace program {

/// The system and the toolkit that an entry point has chosen.
struct Parts {
  ui::FrontEnd& front_end;
  platform::FileSystem& files;
  platform::Clock& clock;
  platform::Locale& locale;
  platform::SettingsStore& settings;
  platform::Shell& shell;
};

/// What comes after the program's name, its words separated by one space.
std::string CommandLine(int argc, char** argv);

/// Runs the program from start-up until it ends, and returns its exit code. `command_line` is what comes
/// after the program's name; not empty, it asks for an unattended run. With `ends_by_itself` (no display)
/// the program ends after that run instead of waiting for its window to be closed.
int Run(const Parts& parts, const std::string& command_line, bool ends_by_itself);

}  // namespace program
