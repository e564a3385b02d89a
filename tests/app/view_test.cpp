#include <sstream>

#include "app/viewer/frmView.h"
#include "tests/app/program.h"
#include "text/text_numbers.h"

namespace app::test {

struct View : testing::Test, Program {
  /// Tells what is selected, and where, once a text is typed or, without one, F3 is pressed; and what is
  /// said.
  void Find(const std::string& text) {
    if (text.empty())
      EXPECT_TRUE(ui::headless::PressKey(view, {ui::Key::kF3}));
    else
      ui::headless::Type(view.txbFind, text);
    story.told += text + ": " + view.txbText.selected_text() + "@" +
                  std::to_string(view.txbText.selection().start) + view.lblFound.text() + "\n";
  }

  Story story{"app/told/"};
  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  frmView view{context};
};

TEST_F(View, FindsPlaceAfterPlaceWithoutRegardToCaseAndStartsOver) {
  EXPECT_TRUE(view.ShowFile("Help", "/help.txt", "built in", owner));
  Find("in");
  files.AddFile("/help.txt", "\xEF\xBB\xBFÄpfel\nund äpfel\nÄPFEL");
  files.Fail(platform::memory::Call::kReadFile, {}, {platform::ErrorKind::kAccessDenied, 13, "denied"}, 1);
  EXPECT_FALSE(view.ShowFile("Help", "/help.txt", "built in", owner));
  Find("/help.txt");
  EXPECT_TRUE(view.ShowFile("Help", "/help.txt", "built in", owner));
  for (const char* text : {"ä", "äPf", "", "", "", "äpfelt", "und", "äp"}) Find(text);
  ui::headless::Click(view.cmdFindNext);
  story.Note("Find next", view);
  view.UserPressedEscape();
  EXPECT_FALSE(view.visible());
}

TEST_F(View, ShowsAHelpThatExplainsEveryMessageAboutAFile) {
  std::istringstream file{std::string(text::EnglishHelp())};
  std::string help;
  for (std::string word; file >> word;) help += word + " ";
  for (int number = 501; number < 564; ++number) {
    const std::string text = number < 540 || number >= 560 ? Text(number) : std::string();
    const std::string sentence = text.substr(0, text.find(". "));
    EXPECT_TRUE(number == text::kTitleSameFolder || help.find(sentence) != std::string::npos) << text;
  }
}

}  // namespace app::test
