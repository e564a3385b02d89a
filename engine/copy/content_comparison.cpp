#include "engine/copy/content_comparison.h"

#include <algorithm>
#include <utility>

namespace engine {

ContentComparison::ContentComparison(const Tools& tools, const Pulse& pulse, std::string source_root,
                                     std::string target_root)
    : tools_(tools),
      pulse_(pulse),
      source_root_(std::move(source_root)),
      target_root_(std::move(target_root)) {}

void ContentComparison::Start(CopyJob job) {
  if (!comparer_) comparer_ = tools_.files.MakeComparer(source_root_, target_root_);
  auto read = std::make_shared<Bytes>(0);
  comparer_->Start({job.folders->shared_source(), job.file, job.folders->shared_target(),
                    job.selection.target, [read, hold = pulse_.hold()](std::int64_t bytes) {
                      hold->Wait();
                      *read = bytes;
                    }});
  pending_.push_back({std::move(job), std::move(read)});
}

std::optional<ContentComparison::Compared> ContentComparison::Collect() {
  auto outcome = comparer_ ? comparer_->Collect() : std::nullopt;
  if (!outcome) return std::nullopt;
  collected_bytes_ += std::max<std::int64_t>(pending_.front().job.file->size, 0);
  Compared compared{std::move(pending_.front().job), std::move(*outcome)};
  pending_.pop_front();
  return compared;
}

void ContentComparison::Wait(std::chrono::milliseconds longest) {
  if (comparer_) comparer_->Wait(longest);
}

double ContentComparison::Reached(double walked) const {
  if (pending_.empty()) return walked;
  const CopyJob& job = pending_.front().job;
  const auto size = static_cast<double>(std::max<std::int64_t>(job.file->size, 1));
  return job.share_begin + job.share * static_cast<double>(*pending_.front().read) / size;
}

std::int64_t ContentComparison::BytesRead() const {
  std::int64_t bytes = collected_bytes_;
  for (const Pending& pending : pending_) bytes += *pending.read;
  return bytes;
}

void ContentComparison::GiveUp() {
  comparer_.reset();
  pending_.clear();
}

}  // namespace engine
