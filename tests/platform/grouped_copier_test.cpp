#include "platform/grouped_copier.h"

#include <gtest/gtest.h>

#include <future>

namespace platform {
namespace {

struct NoDraft : Draft {
  Result<CopyOutcome> Write(const CopyProgress&) override { return CopyOutcome{}; }
  Status ReadBack(const CopyProgress&) override { return Done{}; }
  Status Publish() override { return Done{}; }
};

/// A disk that saves nothing until it is let go on.
struct StuckVolume : CopyVolume {
  CopyLimits limits() const override { return {1, 40, 400, 40, std::chrono::hours{1}}; }
  std::unique_ptr<Draft> Prepare(const CopyOrder&) override { return std::make_unique<NoDraft>(); }
  Status SaveData(const Drafts&) override {
    goes_on.wait();
    return Done{};
  }
  Status SaveNames(const Drafts&) override { return Done{}; }
  std::promise<void> go_on;
  std::shared_future<void> goes_on{go_on.get_future()};
};

TEST(GroupedCopier, LetsMoreGroupsWaitForTheDiskOnlyWhereEachIsOneBigFile) {
  for (const auto& [size, taken] :
       {std::pair(400, 4), {10, 20}}) {  // groups begin at a quarter of their size
    const Entry file{"file", EntryKind::kFile, size, {}, 0};
    const auto volume = std::make_shared<StuckVolume>();
    CopyThreads threads;
    GroupedCopier copier(volume, threads);
    int started = 0;
    for (; copier.HasRoom(); ++started) copier.Start({nullptr, &file, nullptr});
    EXPECT_EQ(started, taken);
    volume->go_on.set_value();
    for (; started > 0; started -= copier.Collect() ? 1 : 0) copier.Wait(std::chrono::seconds{1});
    EXPECT_TRUE(copier.HasRoom());
  }
}

}  // namespace
}  // namespace platform
