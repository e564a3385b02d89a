#include "report/run_progress.h"

#include "tests/story.h"

namespace report {

using namespace std::chrono_literals;

TEST(RunProgress, FollowsWhatWasCountedOrTheSharesAlsoInsideABigFileAndDoesNotCountPauses) {
  Story story{"report/told/"};
  const auto tell = [&](const std::string& step, RunProgress& progress) {
    story.told += step + ": " + std::to_string(progress.fraction());
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
  for (const bool counted : {false, true}) {
    RunProgress timed({counted ? 100 : 0, 0}, {}, !counted);
    timed.Passed(0s);
    for (const auto& [worked, files] :
         {std::pair(7s, 10), {8s, 3}, {8s, 4}, {60s, 4}, {60s, 50}, {60s, 49}, {300s, 4}}) {
      RunProgress now = timed;
      now.Copied(files), now.Reached(files / 100.0, 0), now.Held(worked);
      now.Passed(1'000s);
      tell(std::to_string(worked.count()) + " seconds", now);
    }
  }
}

}  // namespace report
