#include <cctype>

#include "tests/app/program.h"

namespace app::test {

struct Hints : testing::Test, Program {
  Hints() { Start(); }

  std::string After(int milliseconds) {
    front_end.PassTime(milliseconds);
    return window->HintWindow().visible() ? window->HintWindow().lblMessage.text() : "";
  }
};

TEST_F(Hints, ComeOnceWhileThePointerRestsAndGoWithItOrAPress) {
  ui::Button& button = window->cmdHelp;
  button.UserMovedPointer();
  EXPECT_EQ(After(499), "");
  EXPECT_EQ(After(1), button.description());
  EXPECT_EQ(After(6'000), "");
  button.UserMovedPointer();
  EXPECT_EQ(After(500), "") << "the pointer has not left the button";
  button.UserMovedPointerAway();
  button.UserMovedPointer();
  EXPECT_EQ(After(500), button.description());
  button.UserPressed();
  EXPECT_EQ(After(0), "");
  EXPECT_EQ(files.touched().back().path, shell.program + "/qvr_help.txt");
}

TEST_F(Hints, EveryButtonHasOneThatNeverCoversItAndAnAccessKeyOfItsOwnIfAny) {
  window->Clock.Stop();
  std::string keys;
  window->ForEach([&](ui::Control& control) {
    const char key = static_cast<char>(std::tolower(control.access_key()));
    EXPECT_TRUE(key == 0 || keys.find(key) == std::string::npos) << control.name();
    keys += key;
    control.SetVisible(true);
    control.SetEnabled(true);
    if (dynamic_cast<ui::Button*>(&control) == nullptr) return;
    control.UserMovedPointer();
    ASSERT_NE(After(500), "") << control.name();
    const ui::Twips border = (window->width() - window->inner().width) / 2;
    ui::Twips top = window->bounds().bottom() - border - window->inner().height + control.top();
    if (control.parent() != window.get()) top += control.parent()->top();
    const ui::Rect& hint = window->HintWindow().bounds();
    EXPECT_TRUE(hint.top >= top + control.height() || hint.bottom() <= top) << control.name();
  });
}

}  // namespace app::test
