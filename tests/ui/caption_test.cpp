#include "ui/caption.h"

#include <gtest/gtest.h>

TEST(Caption, MarksTheAccessKeyAndKeepsAmpersands) {
  const struct {
    const char* text;
    char key;
    const char* caption;
  } cases[] = {{"Back up", 'u', "Back &up"},
               {"Quit", 'q', "&Quit"},
               {"R&D", 'd', "R&&&D"},
               {"Q & A", 'A', "Q && &A"},
               {"plain & simple", 0, "plain && simple"},
               {"none", 'x', "none"}};
  for (const auto& c : cases) EXPECT_EQ(ui::MarkAccessKey(c.text, c.key), c.caption);
}
