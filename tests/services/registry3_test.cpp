#include "services/registry3.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_system.h"

namespace Registry3 {

struct Registry : testing::Test {
  std::string Exchange() { return ExchangePreviousRun(hive, clock, locale, "k", "n"); }

  platform::memory::MemorySettingsStore store;
  platform::memory::MemoryClock clock;
  platform::memory::MemoryLocale locale;
  Hive hive{store, [this](int code) { return store.Message(code); }};
};

TEST_F(Registry, WordsTheOutcomeOfReading) {
  const auto read = [&](const std::string& key, const std::string& name, const std::string& stored = "",
                        const std::string& message = "", int code = 0) {
    store.Write("k", "n", stored);
    store.FailWith(0, 0, code);
    hive.text = [&](int) { return message; };
    std::string value = "old";
    const std::string status = RegistryReadString(hive, key, name, value);
    EXPECT_EQ(value, stored) << status;
    return status;
  };
  const std::string done = "The operation completed successfully.";
  EXPECT_EQ(read("", "n"), "1 Key not found or is empty.");
  EXPECT_EQ(read("other", ""), "1 Key not found or is empty.");
  EXPECT_EQ(read("k", ""), "2 Name not specified.");
  EXPECT_EQ(read("k", "n", "", done), "3 Name not found.");
  EXPECT_EQ(read("k", "n", "", "Datei nicht gefunden.", 2), "3 Name not found.");
  EXPECT_EQ(read("k", "n", "v", "The system cannot find the file specified."), "3 Name not found.");
  EXPECT_EQ(read("k", "n", "v", done), "0 OK");
  EXPECT_EQ(read("k", "n", "v", "Vorgang erfolgreich."), "0 OK probably");
  EXPECT_EQ(read("k", "n", "", "Access is denied.", 5), "4 \r\nAccess is denied.");
}

TEST_F(Registry, ExchangesThePreviousRunForNow) {
  EXPECT_EQ(Exchange(), "");
  EXPECT_EQ(Exchange(), "2023-11-14 at 22:13:20");
  store.Write("k", "n", "äöü456789");
  EXPECT_EQ(Exchange(), "") << "nine characters";
  store.Write("k", "n", "1234567890");
  EXPECT_EQ(Exchange(), "1234567890");
}

}  // namespace Registry3
