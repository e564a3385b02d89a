#include "app/frmView.h"
#include "tests/app/program.h"
#include "text/text_numbers.h"

namespace app::test {

struct View : testing::Test, Program {
  bool Show(const std::string& path) { return view.ShowFile("Help", path, owner); }

  std::string Find(const std::string& text) {
    ui::headless::Type(view.txbFind, text);
    return view.txbText.selected_text() + view.lblFound.text();
  }

  std::string Next() {
    view.UserPressedEnter();
    return view.txbText.selected_text() + std::to_string(view.txbText.selection().start) +
           view.lblFound.text();
  }

  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  frmView view{context};
};

TEST_F(View, FindsPlaceAfterPlaceWithoutRegardToCaseAndStartsOver) {
  files.AddFile("/help.txt", "\xEF\xBB\xBFÄpfel\nund äpfel\nÄPFEL");
  ASSERT_TRUE(Show("/help.txt"));
  EXPECT_EQ(Find("ä"), "Ä");
  EXPECT_EQ(Find("äPf"), "Äpf") << "typing on stays at the same place";
  EXPECT_EQ(Next(), "äpf11");
  EXPECT_EQ(Next(), "ÄPF18");
  EXPECT_EQ(Next(), "Äpf0Found from the beginning again.");
  EXPECT_EQ(Find("äpfelt"), "ÄpfNothing found.");
}

TEST_F(View, SaysWhyAFileCannotBeRead) {
  EXPECT_FALSE(Show("/missing.txt"));
  EXPECT_NE(view.txbText.text().find("/missing.txt"), std::string::npos);
  EXPECT_TRUE(view.visible());
  view.UserPressedEscape();
  EXPECT_FALSE(view.visible());
}

TEST(Help, ExplainsEveryMessageAboutAFile) {
  const text::ProgramTexts texts(EnglishTexts());
  std::ifstream file(QV_SOURCE_ROOT "/text/qvr_help.txt");
  std::string help;
  for (std::string word; file >> word;) help += word + " ";
  for (int number = 501; number < 540; ++number) {
    const std::string text = texts.GetProgramText(number);
    const std::string sentence = text.substr(0, text.find(". "));
    EXPECT_TRUE(number == text::kTitleSameFolder || help.find(sentence) != std::string::npos) << text;
  }
}

}  // namespace app::test
