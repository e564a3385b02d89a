#include "bench/engine_run.h"
#include "platform/posix/clock.h"
#include "platform/posix/copy/copy_volume.h"
#include "platform/posix/file_system.h"

int main(int argc, char** argv) {
  platform::posix::PosixFileSystem flushing;
  bench::WithoutFlush<platform::posix::PosixFileSystem, platform::posix::PosixCopyVolume> not_flushing;
  platform::posix::PosixClock clock;
  return bench::RunEngine(flushing, not_flushing, clock, {argv + 1, argv + argc});
}
