#include "services/shutdown.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_system.h"
#include "ui/form.h"
#include "ui/headless/headless_front_end.h"

namespace services {
namespace {

using Commands = std::vector<std::pair<std::string, std::string>>;

TEST(ShutDownComputer, RunsTheCommandsInOrderAndCallsOffWhenThePopUpCloses) {
  ui::headless::HeadlessFrontEnd front_end;
  ui::Form owner(front_end, "owner", ui::FormStyle::kMain);
  platform::memory::MemoryShell shell;
  Commands when_shown;
  std::string message;
  const auto pop_up = [&](const std::string& text, int width, int height, int milliseconds) {
    when_shown = shell.commands;
    message = text;
    EXPECT_EQ(width, 6000);
    EXPECT_EQ(height, 1000);
    EXPECT_EQ(milliseconds, 60'000);
  };
  ShutDownComputer({shell, front_end.dialogs(), owner, pop_up}, true, 60'000);
  const Commands first{{"shutdown", "/s /c \"Cancellation possible.\r\nSee comment below\""}};
  EXPECT_EQ(when_shown, first);
  EXPECT_EQ(message,
            "\r\nThis computer will shut down in about 30 seconds.\r\nClick here to cancel the shutdown.");
  ASSERT_EQ(shell.commands.size(), 2U);
  EXPECT_EQ(shell.commands[1], (std::pair<std::string, std::string>{"shutdown", "/a"}));
  ASSERT_EQ(front_end.dialogs().asked.size(), 1U);
  EXPECT_EQ(front_end.dialogs().asked[0].text, "Shutdown cancelled");
}

TEST(ShutDownComputer, ShowsNothingWhenItCannotBeCancelled) {
  ui::headless::HeadlessFrontEnd front_end;
  ui::Form owner(front_end, "owner", ui::FormStyle::kMain);
  platform::memory::MemoryShell shell;
  ShutDownComputer({shell, front_end.dialogs(), owner, nullptr}, false, 60'000);
  EXPECT_EQ(shell.commands, (Commands{{"shutdown", "/s"}}));
  EXPECT_TRUE(front_end.dialogs().asked.empty());
}

}  // namespace
}  // namespace services
