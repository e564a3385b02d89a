#include "base/handle.h"

#include <gtest/gtest.h>

#include <string>

namespace base {

static std::string closed;

struct Numbers {
  using Value = int;
  static int None() { return 0; }
  static void Close(int number) { closed += std::to_string(number); }
};

TEST(Handle, ClosesWhatItOwnsOnceAndNothingElse) {
  {
    Handle<Numbers> one(1);
    Handle<Numbers> two(2);
    one = std::move(two);
    EXPECT_EQ(closed, "1");
    two.Reset(3);  // NOLINT(bugprone-use-after-move): to be used like a new one
    EXPECT_EQ(one.get() + two.Release(), 5);
    EXPECT_TRUE(one && !two);
    auto& same = one;
    one = std::move(same);
    EXPECT_EQ(closed, "1");
  }
  EXPECT_EQ(closed, "12");
}

}  // namespace base
