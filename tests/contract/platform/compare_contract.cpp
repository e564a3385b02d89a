#include <atomic>

#include "tests/contract/platform/file_system_contract.h"

namespace platform::contract {

constexpr std::size_t kLong = std::size_t{9} * 1024 * 1024 + 3;

struct Pair {
  std::string name, source, copy;
  Comparison finding;
};

TEST_P(FileSystemContract, ComparingFindsEveryOtherByteInTheOrderOfTheFiles) {
  std::vector<Pair> pairs;
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{256} << 10, kLong}) {
    const std::string noise = Noise(size);
    const std::string name = std::to_string(size);
    pairs.push_back({name, noise, noise, Comparison::kEqual});
    std::string other = noise;
    if (size > 0) other.back() ^= 1;
    if (size > 0) pairs.push_back({name + " other", noise, other, Comparison::kDifferent});
    pairs.push_back({name + " longer", noise, noise + "x", Comparison::kDifferent});
  }
  pairs.push_back({"changes", "new", "old", Comparison::kChanged});
  pairs.push_back({"source goes", "1", "1", Comparison::kSourceUnread});
  pairs.push_back({"copy goes", "1", "1", Comparison::kCopyUnread});
  for (const Pair& pair : pairs) {
    AddFile("from/" + pair.name, pair.source);
    AddFile("to/" + pair.name, pair.copy);
  }
  const auto from = Open("from");
  const auto to = Open("to");
  scene_->SetModified(At("from/changes"), {1'600'000'000, 0});
  ASSERT_TRUE(files().RemoveFile(At("from/source goes")) && files().RemoveFile(At("to/copy goes")));

  const auto comparer = files().MakeComparer(At("from"), At("to"));
  std::atomic<std::int64_t> compared = 0;
  for (const Pair& pair : pairs) {
    ASSERT_TRUE(comparer->HasRoom());
    comparer->Start({from, &Named(*from, pair.name), to, &Named(*to, pair.name),
                     [&compared](std::int64_t bytes) { compared = std::max(compared.load(), bytes); }});
  }
  for (const Pair& pair : pairs) {
    std::optional<CompareOutcome> outcome;
    while (!(outcome = comparer->Collect())) comparer->Wait(std::chrono::seconds{1});
    EXPECT_EQ(outcome->finding, pair.finding) << pair.name << ": " << outcome->why.text;
    EXPECT_EQ(outcome->why.kind == ErrorKind::kNotFound, pair.finding > Comparison::kChanged) << pair.name;
  }
  EXPECT_GT(compared, 8 << 20) << "told while it reads";
}

}  // namespace platform::contract
