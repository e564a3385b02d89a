#include "services/registry3.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_system.h"

namespace Registry3 {

struct PreviousRun : testing::Test {
  /// The stored text, if it could be read and is no shorter than a date; stores that of now.
  std::string Exchange() { return ExchangePreviousRun(hive, clock, locale, "k", "n"); }

  platform::memory::MemorySettingsStore store;
  platform::memory::MemoryClock clock;
  platform::memory::MemoryLocale locale;
  std::string message = "The operation completed successfully.";
  Hive hive{store, [this](int) { return message; }};
};

TEST_F(PreviousRun, IsExchangedForNow) {
  EXPECT_EQ(Exchange(), "");
  EXPECT_EQ(Exchange(), "2023-11-14 at 22:13:20");
  store.Write("k", "n", "äöü456789");
  EXPECT_EQ(Exchange(), "") << "nine characters";
  store.Write("k", "n", "1234567890");
  EXPECT_EQ(Exchange(), "1234567890");
  message = "Vorgang erfolgreich.";
  EXPECT_EQ(Exchange(), "2023-11-14 at 22:13:20") << "a system that speaks another language";
  store.FailWith(0, 0, 5);
  EXPECT_EQ(Exchange(), "") << "no access";
}

}  // namespace Registry3
