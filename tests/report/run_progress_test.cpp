#include "report/run_progress.h"

#include <gtest/gtest.h>

namespace report {

using namespace std::chrono_literals;

TEST(RunProgress, CountsWhatWasCountedAndTakesTheSharesWhereNothingWas) {
  for (const bool counted : {false, true}) {
    RunProgress progress(counted ? Expected{400, 4'000'000} : Expected{}, {});
    progress.Reached(0.75, 1'000'000);
    progress.Copied(100);
    EXPECT_DOUBLE_EQ(progress.fraction(), counted ? 0.25 : 0.75);
    EXPECT_EQ(progress.Details(), counted ? "100 of 400 files, 976.56 Kb of 3.81 Mb" : "");
    progress.Copied(4'000);  // more has come into the source since
    EXPECT_DOUBLE_EQ(progress.fraction(), counted ? 0.99 : 0.75);
    progress.Reached(1, 4'000'000);
    EXPECT_DOUBLE_EQ(progress.fraction(), 1);
  }
}

TEST(RunProgress, MovesInsideABigFileAlsoWhereAllWasCounted) {
  constexpr std::int64_t kBig = std::int64_t{4} << 30;
  RunProgress progress({6, 6 * kBig}, {});
  progress.Copied(1);
  progress.Reached(0, 2 * kBig - kBig / 2);
  EXPECT_NEAR(progress.fraction(), 0.25, 0.001);
  EXPECT_EQ(progress.Details(), "1 of 6 files, 6.00 Gb of 24.00 Gb");
}

TEST(RunProgress, SaysTheTimeLeftOnceItIsKnownAndDoesNotCountPauses) {
  RunProgress progress({100, 0}, {});
  progress.Passed(0s);
  progress.Copied(10);
  EXPECT_EQ(progress.fraction(), 0.1);
  progress.Passed(7s);
  EXPECT_EQ(progress.TimeLeft(), "") << "too early";
  progress.Held(20s);
  progress.Passed(1'000s);
  EXPECT_EQ(progress.TimeLeft(), "about 3 minutes left");
  progress.Copied(90);
  EXPECT_EQ(progress.fraction(), 0.9);
  EXPECT_EQ(progress.TimeLeft(), "less than a minute left");
}

}  // namespace report
