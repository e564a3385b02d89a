#pragma once

#include <functional>
#include <string>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/settings_store.h"
#include "platform/shell.h"
#include "text/grouped_number.h"
#include "text/program_texts.h"
#include "ui/front_end.h"

namespace app {

/// Everything the windows work with. Made by main(), outlives every window.
struct Context {
  ui::FrontEnd& front_end;
  platform::FileSystem& files;
  platform::Clock& clock;
  platform::Locale& locale;
  platform::SettingsStore& settings;
  platform::Shell& shell;
  const text::ProgramTexts& texts;
  text::NumberMarks marks;
  std::string command_line;                            ///< without the program's own name; empty: none
  bool has_display = true;                             ///< somebody may see the windows
  std::function<void(const std::string& line)> print;  ///< writes a line to standard output
};

}  // namespace app
