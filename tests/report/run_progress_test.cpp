#include "report/run_progress.h"

#include <gtest/gtest.h>

namespace report {

using namespace std::chrono_literals;

TEST(RunProgress, CountsWhatWasCountedAndTakesTheSharesWhereNothingWas) {
  for (const bool counted : {false, true}) {
    RunProgress progress(counted ? Expected{400, 4'000'000} : Expected{}, {});
    progress.Shares(0.75);
    progress.Copied(100, 1'000'000);
    EXPECT_DOUBLE_EQ(progress.fraction(), counted ? 0.25 : 0.75);
    EXPECT_EQ(progress.Details(), counted ? "100 of 400 files, 976.56 Kb of 3.81 Mb" : "");
    progress.Copied(4'000, 40'000'000);  // more has come into the source since
    EXPECT_DOUBLE_EQ(progress.fraction(), counted ? 0.99 : 0.75);
    progress.Shares(1);
    EXPECT_DOUBLE_EQ(progress.fraction(), 1);
  }
}

TEST(RunProgress, SaysTheTimeLeftOnceItIsKnownAndDoesNotCountPauses) {
  RunProgress progress({100, 0}, {});
  progress.Passed(0s);
  progress.Copied(10, 0);
  EXPECT_EQ(progress.fraction(), 0.1);
  progress.Passed(7s);
  EXPECT_EQ(progress.TimeLeft(), "") << "too early";
  progress.Held(20s);
  progress.Passed(1'000s);
  EXPECT_EQ(progress.TimeLeft(), "about 3 minutes left");
  progress.Copied(90, 0);
  EXPECT_EQ(progress.fraction(), 0.9);
  EXPECT_EQ(progress.TimeLeft(), "less than a minute left");
}

}  // namespace report
