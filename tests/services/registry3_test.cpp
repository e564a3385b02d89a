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

TEST_F(PreviousRun, StoresTellWhatCameOfACall) {
  std::string value = "before";
  const auto read = [&](const char* key, const char* name) {
    return RegistryReadString(hive, key, name, value);
  };
  EXPECT_EQ(RegistryWriteString(hive, "k", "n", "text"), "\r\n" + message + "  0 New key created.");
  EXPECT_EQ(RegistryWriteString(hive, "k", "e", ""), "\r\n" + message + "  0 Key already exists.");
  EXPECT_EQ(read("", "n") + read("x", "n"), "1 Key not found or is empty.1 Key not found or is empty.");
  EXPECT_EQ(read("k", "") + read("k", "x"), "2 Name not specified.3 Name not found.");
  EXPECT_EQ(read("k", "e") + value, "3 Name not found.") << "which has no bytes";
  EXPECT_EQ(read("k", "n") + value, "0 OKtext");
  message = "Vorgang erfolgreich.";
  EXPECT_EQ(read("k", "n") + value, "0 OK probablytext");
  store.FailWith(5, 0, 5);
  EXPECT_EQ(read("k", "n") + value, "4 \r\n" + message);
  EXPECT_EQ(RegistryWriteString(hive, "k", "n", ""),
            "\r\n" + message + "  Unable to create (or find) key. 5");
}

}  // namespace Registry3
