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
}

TEST_F(PreviousRun, IsToldInWordsWhereItCannotBeRead) {
  const auto read = [&](const char* key, const char* name, int code) {
    store.FailWith(0, 0, code);
    std::string value = "old";
    const std::string status = RegistryReadString(hive, key, name, value);
    EXPECT_EQ(value, "") << status;
    return status;
  };
  EXPECT_EQ(read("", "n", 0), "1 Key not found or is empty.");
  EXPECT_EQ(read("k", "n", 0), "1 Key not found or is empty.");
  store.Write("k", "n", "");
  EXPECT_EQ(read("k", "", 0), "2 Name not specified.");
  EXPECT_EQ(read("k", "n", 0), "3 Name not found.");
  EXPECT_EQ(read("k", "n", 2), "3 Name not found.");
  message = "Access is denied.";
  EXPECT_EQ(read("k", "n", 5), "4 \r\nAccess is denied.");
}

}  // namespace Registry3
