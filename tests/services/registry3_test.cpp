#include "services/registry3.h"

#include "platform/memory/memory_system.h"
#include "tests/story.h"

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
  Story story{"services/told/"};
  std::string value;
  const auto read = [&](const char* key, const char* name) {
    story.told += RegistryReadString(hive, key, name, value) + "|" + value + "\n";
  };
  const auto write = [&](const char* name, const char* text) {
    story.told += RegistryWriteString(hive, "k", name, text) + "\n";
  };
  write("n", "text"), write("e", "");
  read("", "n"), read("x", "n"), read("k", ""), read("k", "x"), read("k", "e"), read("k", "n");
  message = "Vorgang erfolgreich.";
  read("k", "n");
  store.FailWith(5, 0, 5);
  read("k", "n"), write("n", "");
}

}  // namespace Registry3
