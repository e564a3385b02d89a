#include "platform/grouped_copier.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace platform {
namespace {

struct ListedFolder : Folder {
  void Add(std::string name, std::uint64_t number, std::int64_t size) {
    Entry& file = entries_.emplace_back();
    file.name = std::move(name);
    file.number = number;
    file.size = size;
  }
};

/// Notes what is done with its drafts, and what while something else is.
struct Volume : CopyVolume {
  struct Copy : Draft {
    Copy(Volume& its_volume, std::string its_name) : volume(its_volume), name(std::move(its_name)) {}
    void Prefetch() override { volume.Note("?" + name); }
    Result<CopyOutcome> Write(const CopyProgress&) override {
      if (volume.writing++ > 0) volume.wrote_two = true;
      for (int i = 0; i < volume.yields; ++i) std::this_thread::yield();
      if (volume.is_saving) volume.wrote_while_saving = true;
      volume.Note("+" + name);
      --volume.writing;
      return CopyOutcome{};
    }
    Status ReadBack(const CopyProgress&) override { return Done{}; }
    Status Publish() override {
      volume.Note("=" + name);
      volume.on_publish();
      return Done{};
    }
    Volume& volume;
    const std::string name;
  };

  void Note(const std::string& what) {
    if (its_limits.workers == 0) noted += what;
  }
  CopyLimits limits() const override { return its_limits; }
  std::unique_ptr<Draft> Prepare(const CopyOrder& order) override {
    return std::make_unique<Copy>(*this, order.file->name);
  }
  Status SaveData(const Drafts&) override {
    is_saving = true;
    for (int i = 0; i < yields; ++i) std::this_thread::yield();
    return Done{};
  }
  Status SaveNames(const Drafts&) override {
    is_saving = false;
    return Done{};
  }

  CopyLimits its_limits{
      .workers = 0, .ahead = 2, .files = 1000, .bytes = std::int64_t{1} << 40, .folders = 9};
  std::string noted;
  std::function<void()> on_publish = [] {};
  int yields = 0;
  std::atomic<int> writing = 0;
  std::atomic<bool> is_saving = false, wrote_two = false, wrote_while_saving = false;
};

int CopyAll(const std::shared_ptr<Volume>& volume, const std::shared_ptr<ListedFolder>& folder) {
  CopyThreads threads;
  GroupedCopier copier(volume, threads);
  const auto target = std::make_shared<ListedFolder>();
  for (const Entry& file : folder->entries()) copier.Start({folder, &file, target});
  copier.Save();
  int copied = 0;
  while (copier.Wait(std::chrono::seconds(9)) != CopyStage::kIdle) copied += copier.Collect() ? 1 : 0;
  return copied;
}

}  // namespace

TEST(GroupedCopier, ReadsAndWritesInTheOrderOfTheDiskAndGivesNamesInThatOfTheOrders) {
  const auto volume = std::make_shared<Volume>();
  const auto folder = std::make_shared<ListedFolder>();
  folder->Add("c", 3, 1);
  folder->Add("a", 1, 1);
  folder->Add("b", 2, 1);
  EXPECT_EQ(CopyAll(volume, folder), 3);
  EXPECT_EQ(volume->noted, "?a?b+a?c+b+c=c=a=b");
}

TEST(GroupedCopier, GivesNoMoreNamesOnceItIsGivenUpAndTellsWhichHaveTheirs) {
  const auto volume = std::make_shared<Volume>();
  const auto folder = std::make_shared<ListedFolder>();
  for (const char* name : {"a", "b"}) folder->Add(name, 0, 1);
  CopyThreads threads;
  GroupedCopier copier(volume, threads);
  volume->on_publish = [&] { copier.GiveUp(); };
  for (const Entry& file : folder->entries()) copier.Start({folder, &file, folder});
  copier.Save();
  EXPECT_EQ(volume->noted, "?a?b+a+b=a");
  EXPECT_TRUE(copier.Collect()->ok());
  EXPECT_EQ(copier.Collect()->error().kind, ErrorKind::kCancelled);
  EXPECT_FALSE(copier.Collect());
}

TEST(GroupedCopier, WritesOneBigFileAtATimeAndNoneWhileOthersAreSavedWhereTheVolumeWantsThat) {
  const auto volume = std::make_shared<Volume>();
  volume->its_limits.workers = 4;
  volume->its_limits.files = 4;
  volume->its_limits.big_files_alone = volume->its_limits.saves_alone = true;
  volume->yields = 2000;
  const auto folder = std::make_shared<ListedFolder>();
  for (int i = 0; i < 40; ++i) folder->Add(std::to_string(i), 0, std::int64_t{5} << 20);
  EXPECT_EQ(CopyAll(volume, folder), 40);
  EXPECT_FALSE(volume->wrote_two || volume->wrote_while_saving);
}

}  // namespace platform
