#include <gtest/gtest.h>

#include "app/frmView.h"
#include "tests/app/program.h"
#include "text/text_numbers.h"

namespace app::test {
namespace {

class View : public testing::Test, protected Program {
 protected:
  bool Show(const std::string& content) {
    files.AddFile("/help.txt", content);
    return view.ShowFile("Help", "/help.txt", owner);
  }

  std::string Find(const std::string& text) {
    ui::headless::Type(view.txbFind, text);
    return view.txbText.selected_text();
  }

  std::string Next() {
    view.UserPressedEnter();
    return view.txbText.selected_text() + "@" + std::to_string(view.txbText.selection().start);
  }

  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  frmView view{context};
};

TEST_F(View, FindsPlaceAfterPlaceWithoutRegardToCaseAndStartsOver) {
  ASSERT_TRUE(Show("\xEF\xBB\xBFÄpfel\nund äpfel\nÄPFEL"));
  EXPECT_EQ(Find("ä"), "Ä");
  EXPECT_EQ(Find("äPf"), "Äpf") << "typing on stays at the same place";
  view.txbFind.SetFocus();
  EXPECT_EQ(Next(), "äpf@11");
  EXPECT_EQ(Next(), "ÄPF@18");
  EXPECT_EQ(view.lblFound.text(), "");
  EXPECT_EQ(Next(), "Äpf@0");
  EXPECT_EQ(view.lblFound.text(), "Found from the beginning again.");
}

TEST_F(View, SaysWhenNothingIsFound) {
  Show("some text");
  EXPECT_EQ(Find("text"), "text");
  Find("texts");
  EXPECT_EQ(view.lblFound.text(), "Nothing found.");
  Find("");
  EXPECT_EQ(view.lblFound.text(), "");
}

TEST_F(View, SaysWhyAFileCannotBeRead) {
  EXPECT_FALSE(view.ShowFile("Help", "/missing.txt", owner));
  EXPECT_TRUE(view.visible());
  EXPECT_NE(view.txbText.text().find("/missing.txt"), std::string::npos);
  view.UserPressedEscape();
  EXPECT_FALSE(view.visible());
}

std::string HelpAsOneLine() {
  std::ifstream file(QV_SOURCE_ROOT "/text/qvr_help.txt");
  std::string line;
  for (std::string word; file >> word;) line += word + " ";
  return line;
}

TEST(Help, ExplainsEveryMessageAboutAFile) {
  const text::ProgramTexts texts(EnglishTexts());
  const std::string help = HelpAsOneLine();
  for (int number = 501; number < 540; ++number) {
    const std::string text = texts.GetProgramText(number);
    const std::string sentence = text.substr(0, text.find(". "));
    EXPECT_TRUE(number == text::kTitleSameFolder || help.find(sentence) != std::string::npos) << text;
  }
}

}  // namespace
}  // namespace app::test
