#include "tests/app/program.h"

namespace app::test {

struct Filters : testing::Test, Program {
  Filters() { Start(); }

  /// What is left of a text when the focus goes on.
  std::string Enter(ui::TextBox& box, const std::string& text) {
    ui::headless::Type(box, text);
    window->cmdQuit.SetFocus();
    return box.text();
  }
};

TEST_F(Filters, ExtensionsAreCleanedAndHeldAgainstTheirLength) {
  const struct {
    const char *typed, *kept;
    bool message;
  } cases[] = {{"", "", false},         {"JPG", "", true},         {".jpg", "jpg", false},
               {"*", "", true},         {"**", "", true},          {"j?g", "j?g", false},
               {"*peg", "*peg", false}, {"jpeg12", "jpeg", false}, {"abcdef", "abcdef", true},
               {"x", "x", true},        {"ätß y", "ätßy", false}};
  for (const auto& c : cases) {
    EXPECT_EQ(Enter(window->txbFileExtension, c.typed), c.kept) << c.typed;
    EXPECT_EQ(!Said().empty(), c.message) << c.typed;
  }
}

TEST_F(Filters, ALongSkipTextIsItsOwnToolTip) {
  std::string text;
  for (int i = 0; i < 70; ++i) text += "ä";
  Enter(window->txbExcludedFilepaths, text);
  EXPECT_EQ(window->txbExcludedFilepaths.tool_tip(), "");
  EXPECT_EQ(Enter(window->txbExcludedFilepaths, text + "b"), window->txbExcludedFilepaths.tool_tip());
}

}  // namespace app::test
