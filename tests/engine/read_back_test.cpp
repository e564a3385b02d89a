#include "tests/engine/scene.h"

namespace engine::test {

using platform::memory::Call;

struct ReadBack : testing::Test, Scene {
  ReadBack()
      : Scene({"/src/a=1", "/src/bad=newer", "/dst/bad=old", "/src/c=3", "/src/in/gone=4", "/src/in/z=5"},
              {"in"}) {
    files.Garble("/dst/bad");
    files.Fail(Call::kReadBack, "/dst/in/gone", {platform::ErrorKind::kOther, 5, "Bad sector"});
  }
};

TEST_F(ReadBack, OfEveryCopyKeepsTheOldOneWhereTheNewOneIsBadAlsoFileByFile) {
  reads_back = true;
  for (const bool is_scarce : {false, true}) {
    if (is_scarce) files.SetSpace(100'000, 1'000'000);
    EXPECT_EQ(BackUpAll(), "copied 3, failed 2");
    EXPECT_TRUE(outcome.read_back && !outcome.compared_contents);
    EXPECT_EQ(outcome.totals.counts.read_back, 5);
    EXPECT_EQ(outcome.totals.counts.not_as_written, 2);
    EXPECT_EQ(outcome.totals.bytes_read_back, 9);
    EXPECT_EQ(Copies(), "a=1 bad=old c=3 in/z=5");
    EXPECT_TRUE(Wrote("|Reading back.|"));
    EXPECT_TRUE(Wrote("      Not copied: /src/bad. Bad disk.|"));
    EXPECT_TRUE(Wrote("      Not copied: /src/in/gone. Bad disk. (5: Bad sector)|"));
  }
  EXPECT_EQ(Check(), "new 1, modified 1, up to date 3, due 2");
  EXPECT_FALSE(Wrote("Reading back."));
}

}  // namespace engine::test
