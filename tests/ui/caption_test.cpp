#include "ui/caption.h"

#include <gtest/gtest.h>

TEST(Caption, MarksTheAccessKeyAndKeepsAmpersands) {
  const std::tuple<const char*, char, const char*> cases[] = {{"Back up", 'u', "Back &up"},
                                                              {"Quit", 'q', "&Quit"},
                                                              {"R&D", 'd', "R&&&D"},
                                                              {"Q & A", 'A', "Q && &A"},
                                                              {"plain & simple", 0, "plain && simple"},
                                                              {"none", 'x', "none"}};
  for (const auto& [text, key, caption] : cases) EXPECT_EQ(ui::MarkAccessKey(text, key), caption);
}
