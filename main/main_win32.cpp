#include "main/program.h"
#include "platform/windows/registry_store.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_locale.h"
#include "platform/windows/windows_shell.h"
#include "ui/win32/win32_front_end.h"

/// The program for Windows.
int main(int argc, char** argv) {
  platform::windows::WindowsFileSystem files;
  platform::windows::WindowsClock clock;
  platform::windows::WindowsLocale locale;
  platform::windows::WindowsShell shell;
  platform::windows::RegistryStore settings;
  ui::win32::Win32FrontEnd front_end;
  return program::Run({front_end, files, clock, locale, settings, shell}, program::CommandLine(argc, argv),
                      false);
}
