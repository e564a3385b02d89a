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
  const auto read = store_->Read("Software\\Program", "Last run");
  EXPECT_EQ(read.code, kStoreSuccess);
  EXPECT_TRUE(read.has_value);
  EXPECT_EQ(read.value, "later");
}

TEST_P(SettingsStoreContract, AMissingValueHasTheNumberTwo) {
  EXPECT_EQ(store_->Read("Key", "name").code, kStoreNotFound);
  ASSERT_EQ(store_->Write("Key", "other", "x").set_code, kStoreSuccess);
  const auto read = store_->Read("Key", "name");
  EXPECT_EQ(read.code, kStoreNotFound);
  EXPECT_FALSE(read.has_value);
}

TEST_P(SettingsStoreContract, AnyTextComesBackAsItWas) {
  for (const std::string text :
       {"", " blanks ", "a=b", "[key]", "line\r\nline\n", "C:\\new\\text\\", "Größe €", "a]"}) {
    ASSERT_EQ(store_->Write("Key\\" + text, "name=" + text, text).set_code, kStoreSuccess);
    ASSERT_EQ(store_->Write("Key\\" + text, "second", "x").set_code, kStoreSuccess);
    const auto read = store_->Read("Key\\" + text, "name=" + text);
    EXPECT_TRUE(read.has_value) << text;
    EXPECT_EQ(read.value, text);
  }
}

TEST_P(SettingsStoreContract, MessagesAreShortAndUnknownNumbersHaveNone) {
  for (const int code : {kStoreSuccess, kStoreNotFound, kStoreAccessDenied}) {
    const std::string text = store_->Message(code);
    EXPECT_FALSE(text.empty());
    EXPECT_LE(text.size(), 100u);
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos);
  }
  EXPECT_EQ(store_->Message(987'654'321), "");
}

TEST_P(ClockContract, LocalTimeIsUtcAndWholeMinutesOfOffset) {
  for (const std::int64_t seconds : {-1'000'000'000LL, 0LL, 951'782'400LL, 1'700'000'000LL}) {
    const CalendarTime utc = ToUtc({seconds, 0});
    const CalendarTime local = clock_->ToLocal({seconds, 0});
    EXPECT_EQ(local.second, utc.second);
    EXPECT_LE(std::abs(local.year - utc.year), 1);
    EXPECT_GE(local.day_of_year, 1);
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
