#include <cctype>
#include <set>

#include "tests/app/program.h"

namespace app::test {

struct Hints : testing::Test, Program {
  Hints() { Start(); }

  void After(const std::string& step, std::chrono::milliseconds time) {
    front_end.PassTime(time);
    story.Note(step, window->HintWindow());
  }

  Story story{"app/told/"};
};

TEST_F(Hints, ComeOnceBesideTheRestingPointerAndGoWithItOrAPress) {
  ui::Button& button = window->cmdHelp;
  button.UserMovedPointer();
  After("Before half a second", 499ms);
  After("After it", 1ms);
  const ui::Twips top =
      window->bounds().bottom() - 120 - window->inner().height + button.top();  // 120: a border
  EXPECT_LE(window->HintWindow().bounds().bottom(), top) << "never over the button";
  After("It has been read", 6'000ms);
  button.UserMovedPointer();
  After("The pointer has not left the button", 500ms);
  button.UserMovedPointerAway();
  button.UserMovedPointer();
  After("It has, and comes back", 500ms);
  button.UserPressed();
  After("A press", 0ms);
}

TEST_F(Hints, EveryButtonHasOneAndNoTwoControlsShareAnAccessKey) {
  std::set<std::pair<const ui::Control*, int>> keys;
  window->ForEach([&](ui::Control& control) {
    const int key = std::tolower(control.access_key());
    // The frames of the setup commands are never used together with each other or with the other frames.
    const bool alone = control.parent() == &window->setup_commands.fraSetup ||
                       control.parent() == &window->setup_commands.fraSaveSetup;
    EXPECT_TRUE(key == 0 || keys.insert({alone ? control.parent() : nullptr, key}).second) << control.name();
    EXPECT_FALSE(alone && (key == 'q' || key == 'h' || key == 'o')) << control.name();
    EXPECT_EQ(dynamic_cast<ui::Button*>(&control) != nullptr, !control.description().empty())
        << control.name();
  });
}

}  // namespace app::test
