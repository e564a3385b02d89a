#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "engine/target/target_root.h"
#include "engine/tools.h"

namespace engine {

/// The space for copies on the disk of the target folder, less what is on its way there. Sizes are in bytes.
class TargetSpace {
 public:
  /// Both must outlive the object.
  TargetSpace(const Tools& tools, const TargetRoot& root) : tools_(tools), root_(root) {}

  /// What is free for a file of that size; nothing when the disk does not say. While there is plenty, an
  /// answer holds for a moment.
  std::optional<double> FreeFor(double size);

  /// Whether that file would leave so little that the files before it had better be settled first.
  bool is_scarce() const { return is_scarce_; }

  /// What is handed over, and what has arrived or failed.
  void Begin(double size);
  void End(double size) { on_its_way_ -= size; }

  /// The next FreeFor() asks the disk in any case.
  void Forget() { free_.reset(); }

  /// The largest file that the target's format can hold; 0 where no limit is known.
  std::int64_t LargestFile();

 private:
  void Ask();

  const Tools& tools_;
  const TargetRoot& root_;
  double on_its_way_ = 0;
  bool is_scarce_ = false;
  std::optional<double> free_;  ///< when last asked, less what was handed over since
  std::chrono::milliseconds asked_{0};
  std::optional<std::int64_t> largest_file_;
};

}  // namespace engine
