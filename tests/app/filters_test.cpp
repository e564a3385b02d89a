#include "tests/app/program.h"

namespace app::test {

struct Filters : testing::Test, Program {};

TEST_F(Filters, AreCleanedOrRefusedWhenTheFocusGoesOnAndClearedByAButton) {
  Story story{"app/told/"};
  frmMain& main = Start();
  const auto enter = [&](ui::TextBox& box, const std::string& text) {
    ui::headless::Type(box, text);
    front_end.PassTime(1'000ms);
    main.cmdQuit.SetFocus();
    story.Note(text, main, Heard());
  };
  for (const char* extension : {"", ".jpg", "j?g", "*peg", "jpeg12", "\xC3\xA4t\xC3\x9F y", "j\npg\n", "JPG",
                                "*", "**", "abcdef", "x"})
    enter(main.txbFileExtension, extension);
  const std::string of_70 = "\xC3\xA4" + std::string(69, 'x');
  for (const std::string& patterns : {of_70, of_70 + "y", std::string("\n.tmp\r\n/cache/\n\nb\n")})
    enter(main.txbExcludedFilepaths, patterns);
  ui::headless::Click(main.cmdClearFolder[2]);
  front_end.PassTime(1'000ms);
  story.Note("Clear", main);
}

}  // namespace app::test
