#include <cctype>
#include <set>

#include "tests/app/program.h"

namespace app::test {

struct Hints : testing::Test, Program {
  Hints() { Start(); }

  std::string After(int milliseconds) {
    front_end.PassTime(milliseconds);
    return window->HintWindow().visible() ? window->HintWindow().lblMessage.text() : "";
  }
};

TEST_F(Hints, ComeOnceBesideTheRestingPointerAndGoWithItOrAPress) {
  ui::Button& button = window->cmdHelp;
  button.UserMovedPointer();
  EXPECT_EQ(After(499), "");
  EXPECT_EQ(After(1), button.description());
  const ui::Twips top =
      window->bounds().bottom() - 120 - window->inner().height + button.top();  // 120: a border
  EXPECT_LE(window->HintWindow().bounds().bottom(), top) << "never over the button";
  EXPECT_EQ(After(6'000), "");
  button.UserMovedPointer();
  EXPECT_EQ(After(500), "") << "the pointer has not left the button";
  button.UserMovedPointerAway();
  button.UserMovedPointer();
  EXPECT_EQ(After(500), button.description());
  button.UserPressed();
  EXPECT_EQ(After(0), "");
}

TEST_F(Hints, EveryButtonHasOneAndNoTwoControlsShareAnAccessKey) {
  std::set<int> keys;
  window->ForEach([&](ui::Control& control) {
    const int key = std::tolower(control.access_key());
    EXPECT_TRUE(key == 0 || keys.insert(key).second) << control.name();
    EXPECT_EQ(dynamic_cast<ui::Button*>(&control) != nullptr, !control.description().empty())
        << control.name();
  });
}

}  // namespace app::test
