#include "report/run_progress.h"

#include "tests/story.h"

namespace report {

using namespace std::chrono_literals;

TEST(RunProgress, FollowsWhatWasCountedOrTheSharesAlsoInsideABigFileAndDoesNotCountPauses) {
  Story story{"report/told/"};
  const auto tell = [&](const char* step, RunProgress& progress) {
    story.told += std::string(step) + ": " + std::to_string(progress.fraction());
    story.told += " " + progress.Details() + " " + progress.TimeLeft() + "\n";
  };
  for (const bool counted : {false, true}) {
    RunProgress progress(counted ? Expected{400, 4'000'000} : Expected{}, {});
    progress.Reached(0.75, 1'000'000);
    progress.Copied(100);
    tell(counted ? "Counted" : "Not counted", progress);
    progress.Copied(4'000);
    tell("More has come into the source since", progress);
    progress.Reached(1, 4'000'000);
    tell("All", progress);
  }
  constexpr std::int64_t kBig = std::int64_t{4} << 30;
  RunProgress big({6, 6 * kBig}, {});
  big.Copied(1);
  big.Reached(0, 2 * kBig - kBig / 2);
  tell("In the second of six big files", big);
  RunProgress timed({100, 0}, {});
  timed.Passed(0s);
  timed.Copied(10);
  timed.Passed(7s);
  tell("Too early", timed);
  timed.Held(20s);
  timed.Passed(1'000s);
  tell("After a pause", timed);
  timed.Copied(90);
  tell("Soon done", timed);
}

}  // namespace report
