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
  const std::string done = "The operation completed successfully.";
  const struct {
    std::string key, name;
    int code;
    std::string stored, message, status;
  } cases[] = {{"", "n", 0, "", "", "1 Key not found or is empty."},
               {"other", "", 0, "", "", "1 Key not found or is empty."},
               {"k", "", 0, "", "", "2 Name not specified."},
               {"k", "n", 2, "", "Datei nicht gefunden.", "3 Name not found."},
               {"k", "n", 0, "", done, "3 Name not found."},
               {"k", "n", 0, "v", "The system cannot find the file specified.", "3 Name not found."},
               {"k", "n", 0, "v", done, "0 OK"},
               {"k", "n", 0, "v", "Vorgang erfolgreich.", "0 OK probably"},
               {"k", "n", 5, "", "Access is denied.", "4 \r\nAccess is denied."}};
  for (const auto& c : cases) {
    store.Write("k", "n", c.stored);
    store.FailWith(0, 0, c.code);
    std::string value = "old";
    hive.text = [&](int) { return c.message; };
    EXPECT_EQ(RegistryReadString(hive, c.key, c.name, value), c.status);
    EXPECT_EQ(value, c.stored);
  }
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
