#include "engine/target/target_space.h"

namespace engine {
namespace {

/// How much beyond the files on their way is plenty, and for how long an answer then holds.
constexpr double kPlenty = 256.0 * 1024 * 1024;
constexpr std::chrono::milliseconds kAnswerHolds{100};

}  // namespace

/// On a disk elsewhere in the network the question takes longer than a small file. With plenty of room the
/// answer holds for a moment; a disk that other programs fill meanwhile fails the copy instead.
std::optional<double> TargetSpace::FreeFor(double size) {
  const std::chrono::milliseconds now = tools_.clock.Monotonic();
  if (!free_ || is_scarce_ || now - asked_ >= kAnswerHolds) {
    Ask();
    asked_ = now;
  }
  is_scarce_ = free_ && *free_ - size <= kPlenty;
  return free_;
}

void TargetSpace::Ask() {
  double free_bytes = 0;
  double total_bytes = 0;
  free_.reset();
  if (tools_.GetDiskSpace(root_.path(), free_bytes, total_bytes) == 0) free_ = free_bytes - on_its_way_;
}

void TargetSpace::Begin(double size) {
  on_its_way_ += size;
  if (free_) *free_ -= size;
}

std::int64_t TargetSpace::LargestFile() {
  if (!largest_file_) largest_file_ = tools_.files.LargestFile(root_.path());
  return *largest_file_;
}

}  // namespace engine
