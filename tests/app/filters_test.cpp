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
  using Cases = std::vector<std::pair<const char*, const char*>>;
  const Cases good = {{"", ""},         {".jpg", "jpg"},    {"j?g", "j?g"},
                      {"*peg", "*peg"}, {"jpeg12", "jpeg"}, {"ätß y", "ätßy"}};
  for (const auto& [typed, kept] : good) EXPECT_EQ(Enter(window->txbFileExtension, typed) + Said(), kept);
  const Cases bad = {{"JPG", ""}, {"*", ""}, {"**", ""}, {"abcdef", "abcdef"}, {"x", "x"}};
  for (const auto& [typed, kept] : bad) {
    EXPECT_EQ(Enter(window->txbFileExtension, typed), kept);
    EXPECT_NE(Said(), "") << typed;
  }
}

TEST_F(Filters, ASkipTextOfMoreThan70CharactersIsItsOwnToolTip) {
  const std::string text = "ä" + std::string(69, 'x');
  Enter(window->txbExcludedFilepaths, text);
  EXPECT_EQ(window->txbExcludedFilepaths.tool_tip(), "");
  EXPECT_EQ(Enter(window->txbExcludedFilepaths, text + "y"), window->txbExcludedFilepaths.tool_tip());
}

TEST_F(Filters, PastedLinesBecomePatternsAndBlanksElsewhere) {
  EXPECT_EQ(Enter(window->txbExcludedFilepaths, "\n.tmp\r\n/cache/\n\nb\n"), ".tmp,/cache/,b");
  EXPECT_EQ(Enter(window->txbFileExtension, "j\npg\n"), "jpg");
}

}  // namespace app::test
