#include "tests/contract/platform/system_contract.h"

#include <string>

namespace platform::contract {
namespace {

using Disposition = SettingsStore::Disposition;

TEST_P(SettingsStoreContract, AKeyIsCreatedOnceAndItsValuesAreReplaced) {
  EXPECT_FALSE(store_->HasKey("Software\\Program"));
  const auto first = store_->Write("Software\\Program", "Last run", "2026-11-21 at 14:05");
  EXPECT_EQ(first.create_code, kStoreSuccess);
  EXPECT_EQ(first.set_code, kStoreSuccess);
  EXPECT_EQ(first.disposition, Disposition::kCreated);
  EXPECT_EQ(store_->Write("SOFTWARE\\program", "LAST RUN", "later").disposition, Disposition::kOpened);
  EXPECT_TRUE(store_->HasKey("software\\PROGRAM"));
  EXPECT_EQ(store_->Read("Software\\Program", "Last run").value, "later");
}

TEST_P(SettingsStoreContract, AMissingValueHasTheNumberTwo) {
  EXPECT_EQ(store_->Read("Key", "name").code, kStoreNotFound);
  ASSERT_EQ(store_->Write("Key", "other", "x").set_code, kStoreSuccess);
  EXPECT_EQ(store_->Read("Key", "name").code, kStoreNotFound);
  EXPECT_FALSE(store_->Read("Key", "name").has_value);
}

TEST_P(SettingsStoreContract, AnyTextComesBackAsItWas) {
  for (const std::string text :
       {"", " blanks ", "a=b", "[key]", "line\r\nline\n", "C:\\new\\text\\", "Größe €", "a]"}) {
    ASSERT_EQ(store_->Write("Key\\" + text, "name=" + text, text).set_code, kStoreSuccess);
    ASSERT_EQ(store_->Write("Key\\" + text, "second", "x").set_code, kStoreSuccess);
    const auto read = store_->Read("Key\\" + text, "name=" + text);
    EXPECT_EQ(read.code, kStoreSuccess);
    EXPECT_TRUE(read.has_value) << text;
    EXPECT_EQ(read.value, text);
  }
}

TEST_P(SettingsStoreContract, MessagesAreShortAndUnknownNumbersHaveNone) {
  for (int code = 0; code < 2000; ++code) {
    const std::string text = store_->Message(code);
    EXPECT_LE(text.size(), 100u) << code;
    EXPECT_FALSE(text.ends_with('\n') || text.ends_with('\r') || text.ends_with(' ')) << code;
  }
  for (const int code : {kStoreSuccess, kStoreNotFound, kStoreAccessDenied})
    EXPECT_NE(store_->Message(code), "");
  EXPECT_EQ(store_->Message(987'654'321), "");
}

TEST_P(ClockContract, LocalTimeIsUtcAndAFewWholeMinutes) {
  for (const std::int64_t seconds : {-1'000'000'000LL, 0LL, 951'782'400LL, 1'700'000'000LL}) {
    const CalendarTime local = clock_->ToLocal({seconds, 0});
    std::int64_t minutes = -12 * 60;
    while (minutes <= 14 * 60 && ToUtc({seconds + minutes * 60, 0}) != local) ++minutes;
    EXPECT_LE(minutes, 14 * 60) << seconds;
  }
}

TEST_P(ClockContract, TimeRunsForward) {
  const auto before = clock_->Monotonic();
  const FileTime now = clock_->Now();
  EXPECT_GT(now.seconds, 1'600'000'000);
  EXPECT_LE(now, clock_->Now());
  EXPECT_LE(before, clock_->Monotonic());
}

TEST_P(LocaleContract, EveryFormatSaysSomething) {
  const CalendarTime time{2026, 11, 21, 14, 5, 9, 325};
  EXPECT_EQ(locale_->Language().size(), 2u);
  EXPECT_FALSE(locale_->DecimalSeparator().empty());
  EXPECT_NE(locale_->DecimalSeparator(), locale_->ThousandsSeparator());
  EXPECT_NE(locale_->ShortDate(time).find("21"), std::string::npos);
  EXPECT_NE(locale_->TimeOfDay(time).find("05"), std::string::npos);
}

}  // namespace
}  // namespace platform::contract
