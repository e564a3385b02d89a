#include "bench/engine_run.h"
#include "platform/windows/clock.h"
#include "platform/windows/copy/copy_volume.h"
#include "platform/windows/file_system.h"

namespace {

/// Its files are not flushed by the threads that write them, either.
class UnflushedVolume : public platform::windows::WindowsCopyVolume {
 public:
  UnflushedVolume(const std::string& source, const std::string& target)
      : WindowsCopyVolume(source, target, platform::windows::DataFlush::kNever) {}
};

}  // namespace

int main(int argc, char** argv) {
  platform::windows::WindowsFileSystem flushing;
  bench::WithoutFlush<platform::windows::WindowsFileSystem, UnflushedVolume> not_flushing;
  platform::windows::WindowsClock clock;
  return bench::RunEngine(flushing, not_flushing, clock, {argv + 1, argv + argc});
}
