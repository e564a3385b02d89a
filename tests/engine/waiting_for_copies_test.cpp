#include <memory>
#include <utility>

#include "tests/engine/scene.h"

namespace engine::test {

using platform::CopyStage;

/// One file on a disk that takes its time: 5 waits of 100 ms to write it, and 7 to save it; where it is to be
/// read back, the last 5 of these. It has its name two waits before its outcome is told.
class SlowCopier : public platform::Copier {
 public:
  SlowCopier(platform::memory::MemoryClock& clock, bool opens) : clock_(clock), opens_(opens) {}
  bool HasRoom() override { return !is_begun_; }
  void Start(platform::CopyOrder order) override {
    order_ = std::move(order);
    is_begun_ = true;
  }
  void Save() override {}
  void GiveUp() override { is_given_up_ = true; }
  std::optional<platform::Result<platform::CopyOutcome>> Collect() override {
    if (is_given_up_ && waits_ < 10) return platform::Error{platform::ErrorKind::kCancelled, 0, {}};
    if ((waits_ < 12 && !is_given_up_) || !std::exchange(is_begun_, false)) return std::nullopt;
    if (!opens_) return platform::Error{platform::ErrorKind::kAccessDenied, 13, {}};
    return platform::Result<platform::CopyOutcome>(
        platform::CopyOutcome{order_.file->size, platform::kSystem, platform::kReadOnly, false});
  }
  CopyStage Wait(std::chrono::milliseconds) override {
    clock_.Advance(std::chrono::milliseconds{100});
    if (++waits_ > 12) return CopyStage::kReady;
    if (waits_ <= 5 && opens_) order_.watcher(order_.file->size * waits_ / 5);
    if (waits_ <= 7 || !order_.read_back) return waits_ <= 5 ? CopyStage::kWriting : CopyStage::kSaving;
    order_.watcher(order_.file->size + order_.file->size * (waits_ - 8) / 5);
    return CopyStage::kReadingBack;
  }

 private:
  platform::memory::MemoryClock& clock_;
  const bool opens_;
  platform::CopyOrder order_;
  bool is_begun_ = false;
  bool is_given_up_ = false;
  int waits_ = 0;
};

class SlowFiles : public platform::memory::MemoryFileSystem {
 public:
  std::unique_ptr<platform::Copier> MakeCopier(const std::string&, const std::string&) override {
    return std::make_unique<SlowCopier>(*clock, opens);
  }
  platform::memory::MemoryClock* clock = nullptr;
  bool opens = true;  ///< the source
};

struct SlowScene : Scene {
  SlowScene() {
    tree::Add(slow, {"/dst/"});
    slow.AddHugeFile("/src/big", std::int64_t{4} << 30);
    slow.clock = &clock;
  }
  void Saving(bool is_saving) override {
    Scene::Saving(is_saving);
    if (saving == "saving|") saving_since = clock.Monotonic();
  }
  std::chrono::milliseconds saving_since{0};
  SlowFiles slow;
  Tools slow_tools{slow, clock, texts, {}, tools.GetDiskSpace, tools.IsWriteProtected};

  RunOutcome BackUpSlowly() {
    return RunChecked(slow_tools,
                      {setup, app::Operation::kBackupModifiedFiles, {}, false, false, reads_back});
  }
};

TEST(WaitingForCopies, MovesTheBarInsideABigFileAndSaysWhenTheDiskIsWaitedFor) {
  SlowScene scene;
  scene.on_copy = [&] { scene.slow.AddFile("/dst/big", "", {}, platform::kReadOnly | platform::kHidden); };
  EXPECT_EQ(scene.BackUpSlowly().totals.counts.copied, 1);
  ASSERT_GE(scene.progress.size(), 5U);
  EXPECT_GT(scene.progress[0], 0);
  for (std::size_t i = 1; i < 5; ++i) EXPECT_GT(scene.progress[i], scene.progress[i - 1]) << i;
  constexpr std::int64_t kSize = std::int64_t{4} << 30;
  EXPECT_EQ(scene.bytes_done[1], kSize * 2 / 5);
  EXPECT_EQ(scene.bytes_done.back(), kSize);
  EXPECT_EQ(scene.saving, "saving|done|saving|done|") << "the file, and the whole at the end";
  EXPECT_EQ(scene.saving_since, std::chrono::milliseconds{1'100}) << "not for a wait or two";
  EXPECT_EQ(scene.slow.AttributesOf("/dst/big"), platform::kSystem) << "whatever the copier left";
}

TEST(WaitingForCopies, MovesTheBarOverTheSecondHalfOfABigFileWhileItsCopyIsReadBack) {
  SlowScene scene;
  scene.reads_back = true;
  EXPECT_EQ(scene.BackUpSlowly().totals.counts.read_back, 1);
  ASSERT_GE(scene.progress.size(), 11U);
  const double written = scene.progress[6];
  EXPECT_NEAR(written, scene.progress.back() / 2, 0.01);
  EXPECT_EQ(scene.bytes_done[6], std::int64_t{2} << 30);
  for (std::size_t i = 8; i < 11; ++i) EXPECT_GT(scene.progress[i], scene.progress[i - 1]) << i;
  EXPECT_EQ(scene.read_back, "/src/big|/src/big|/src/big|/src/big|");
}

TEST(WaitingForCopies, NamesTheFileNoMoreOnceTheDiskIsWaitedForEvenIfItCouldNotBeOpened) {
  SlowScene scene;
  scene.slow.opens = false;
  EXPECT_EQ(scene.BackUpSlowly().totals.counts.failed, 1);
  EXPECT_EQ(scene.copied, "/src/big|/src/big|/src/big|/src/big|/src/big|/src/big|");
}

TEST(WaitingForCopies, EndsWithinABlinkWhenTheUserCancelsAndCountsWhatHasItsName) {
  for (const int breaths : {2, 8, 10}) {
    SlowScene scene;
    scene.on_breath = [&] { scene.stop = scene.breaths >= breaths; };
    const RunOutcome outcome = scene.BackUpSlowly();
    EXPECT_TRUE(outcome.cancelled && outcome.totals.counts.copied == (breaths == 10 ? 1 : 0)) << breaths;
    EXPECT_EQ(scene.breaths, breaths);
  }
}

}  // namespace engine::test
