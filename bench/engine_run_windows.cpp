#include "bench/engine_run.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_file_system.h"

int main(int argc, char** argv) {
  platform::windows::WindowsFileSystem flushing;
  bench::WithoutFlush<platform::windows::WindowsFileSystem> not_flushing;
  platform::windows::WindowsClock clock;
  return bench::RunEngine(flushing, not_flushing, clock, {argv + 1, argv + argc});
}
