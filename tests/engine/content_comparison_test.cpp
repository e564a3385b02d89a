#include "tests/engine/scene.h"

namespace engine::test {

using platform::memory::Call;

/// Runs compare contents here.
struct ContentComparison : testing::Test, Scene {
  ContentComparison() { compare_contents = true; }

  std::string Sums() const {
    return std::to_string(outcome.totals.counts.compared) + " compared, " +
           std::to_string(outcome.totals.counts.differed) + " differed, " +
           std::to_string(outcome.totals.bytes_compared) + " bytes";
  }
};

TEST_F(ContentComparison, TellsAllInTheOrderOfTheWalk) {
  tree::Add(files, {"/src/a=12", "/dst/a=13", "/src/b=new", "/src/c=12", "/dst/c=12", "/src/d=1", "/dst/d=2",
                    "/src/in/e=1", "/dst/in/e=2"});
  setup.IncludedFolders = {"in", "gone"};
  EXPECT_EQ(BackUp(), "new 1, modified 3, copied 4, up to date 1, warnings 1");
  EXPECT_EQ(Sums(), "4 compared, 3 differed, 6 bytes");
  EXPECT_EQ(copied, "/src/a|/src/b|/src/d|/src/in/e|");
  EXPECT_TRUE(
      Wrote("      Other content: /src/a|      Other content: /src/d|      Other content: /src/in/e|"));
  EXPECT_TRUE(Wrote("Comparing all.|"));
  EXPECT_EQ(files.ContentOf("/dst/a") + files.ContentOf("/dst/d"), "121");
}

TEST_F(ContentComparison, TakesNothingForEqualThatCannotBeRead) {
  tree::Add(files, {"/src/a=1", "/dst/a=1", "/src/b=1", "/dst/b=1", "/src/c=1", "/dst/c=1"});
  files.Fail(Call::kReadContent, "/src/a", {platform::ErrorKind::kAccessDenied, 13, "Denied"});
  files.Fail(Call::kReadContent, "/dst/b", {platform::ErrorKind::kOther, 5, "Bad sector"});
  EXPECT_EQ(BackUp(), "up to date 1, failed 2");
  EXPECT_EQ(Sums(), "1 compared, 0 differed, 1 bytes");
  EXPECT_TRUE(Wrote("      Not compared: /src/a. No permission. (13: Denied)|"));
  EXPECT_TRUE(Wrote("      Copy unreadable: /dst/b. Unknown. (5: Bad sector) Move it.|"));
}

TEST_F(ContentComparison, TellsASourceThatChangesFromACopyThatIsBad) {
  tree::Add(files, {"/src/a=1", "/dst/a=1", "/src/b=1", "/dst/b=1"});
  files.Before([this](Call call, const std::string& path) {
    if (call == Call::kReadContent && path == "/src/a") files.AddFile("/src/a", "22", {1'700'000'100, 0});
  });
  EXPECT_EQ(BackUp(), "modified 1, copied 1, up to date 1");
  EXPECT_EQ(Sums(), "2 compared, 0 differed, 2 bytes");
  EXPECT_TRUE(Wrote("Changed before: /src/a|") && !Wrote("Other content"));
  EXPECT_EQ(files.ContentOf("/dst/a"), "22");
}

TEST_F(ContentComparison, IsGivenUpWithTheRunWhoseSumsBalanceAllTheSame) {
  for (int i = 0; i < 3'000; ++i) {
    const std::string name = "/" + std::to_string(i);
    tree::Add(files, {"/src" + name + "=12", "/dst" + name + "=12"});
  }
  tree::Add(files, {"/dst/1500=13", "/src/new=12"});
  on_copy = [this] { stop = true; };
  EXPECT_EQ(BackUp(), "up to date 1500, cancelled 1");
  stop = false;
  files.SetSpace(0, 1'000);
  EXPECT_EQ(BackUp(), "modified 1, up to date 1500, failed 1, terminated 1");
}

}  // namespace engine::test
