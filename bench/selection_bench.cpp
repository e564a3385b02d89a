#include <benchmark/benchmark.h>

#include "engine/selection/selection.h"

/// What the rules of a run cost for one file.
namespace {

void DecideOnAFile(benchmark::State& state, const engine::Filters& filters) {
  const std::string folder = "/home/ada/Documents/Letters and other papers/2024/From abroad";
  const platform::FileTime noon{1'700'000'000, 0};
  const platform::Entry source{"A letter of some length to a friend.txt", platform::EntryKind::kFile, 4'096,
                               noon};
  const platform::Entry target = source;
  const engine::SelectionRules rules{app::Operation::kCheckBackupState, filters};
  for ([[maybe_unused]] auto _ : state)
    benchmark::DoNotOptimize(engine::SelectFile(rules, {folder, source, &target}));
}

}  // namespace

BENCHMARK_CAPTURE(DecideOnAFile, without_filters, {});
BENCHMARK_CAPTURE(DecideOnAFile, with_an_extension, {"txt", {}, {}});
BENCHMARK_CAPTURE(DecideOnAFile, with_a_wildcard, {"t*t", {}, {}});
BENCHMARK_CAPTURE(DecideOnAFile, with_five_patterns,
                  {{}, engine::SkipPatterns("cache/, .tmp, /old/, thumbs.db, backup of"), {}});
