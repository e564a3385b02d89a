#include "bench/engine_run.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_copy_volume.h"
#include "platform/posix/posix_file_system.h"

int main(int argc, char** argv) {
  platform::posix::PosixFileSystem flushing;
  bench::WithoutFlush<platform::posix::PosixFileSystem, platform::posix::PosixCopyVolume> not_flushing;
  platform::posix::PosixClock clock;
  return bench::RunEngine(flushing, not_flushing, clock, {argv + 1, argv + argc});
}
