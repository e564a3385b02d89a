#include "ui/text_box.h"

#include <gtest/gtest.h>

#include "ui/form.h"
#include "ui/headless/headless_front_end.h"

namespace {

class TextBoxTest : public testing::Test {
 protected:
  ui::headless::HeadlessFrontEnd front_end_;
  ui::Form form_{front_end_, "form", ui::FormStyle::kMain};
  ui::TextBox box_{&form_, "box", ui::TextBox::Lines::kMany};
};

TEST_F(TextBoxTest, RemovesCharactersNotBytesFromTheEnd) {
  struct Case {
    const char* text;
    std::size_t characters;
    const char* left;
  };
  const Case cases[] = {
      {"Counting files ... ", 19, ""},
      {"\xC3\xA4\xC3\xB6\xC3\xBC", 2, "\xC3\xA4"},
      {"a\r\n\xF0\x9F\x93\x81", 2, "a\r"},
      {"ab", 3, ""},
      {"", 1, ""},
  };
  for (const Case& c : cases) {
    box_.SetText(c.text);
    box_.RemoveFromEnd(c.characters);
    EXPECT_EQ(box_.text(), c.left);
    EXPECT_EQ(box_.selection(), (ui::Selection{box_.length(), 0}));
  }
}

TEST_F(TextBoxTest, ItsLengthFollowsEveryChange) {
  box_.SetText("\xC3\xA4\n");
  EXPECT_EQ(box_.length(), 3U);
  box_.Append("\xF0\x9F\x93\x81\n");
  EXPECT_EQ(box_.length(), 6U);
  box_.RemoveFromEnd(2);
  EXPECT_EQ(box_.length(), 4U);
  form_.Show();
  ui::headless::Type(box_, "x\ny");
  EXPECT_EQ(box_.length(), 4U);
}

TEST_F(TextBoxTest, OneLineTakesAFileNameAsItIs) {
  ui::TextBox line(&form_, "line");
  line.SetText("a\nb\xFF");
  EXPECT_EQ(line.text(), "a\nb\xFF");
}

TEST_F(TextBoxTest, ItsContentIsNotItsName) {
  box_.SetText("content");
  EXPECT_EQ(box_.spoken_name(), "");
}

}  // namespace
