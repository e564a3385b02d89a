#include "ui/caption.h"

#include <gtest/gtest.h>

TEST(Caption, MarksTheAccessKeyAndKeepsAmpersands) {
  EXPECT_EQ(ui::MarkAccessKey("Back up", 'u') + " " + ui::MarkAccessKey("Quit", 'q'), "Back &up &Quit");
  EXPECT_EQ(ui::MarkAccessKey("R&D", 'd') + " " + ui::MarkAccessKey("Q & A", 'A'), "R&&&D Q && &A");
  EXPECT_EQ(ui::MarkAccessKey("plain & simple", 0) + " " + ui::MarkAccessKey("none", 'x'),
            "plain && simple none");
}
