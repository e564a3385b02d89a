#include "tests/contract/platform/system_contract.h"

#include <string>

namespace platform::contract {

using Disposition = SettingsStore::Disposition;

TEST_P(SettingsStoreContract, AKeyIsCreatedOnceAndItsValuesAreReplaced) {
  EXPECT_FALSE(seam_->HasKey("Software\\Program"));
  EXPECT_EQ(seam_->Read("Software\\Program", "Last run").code, kStoreNotFound);
  const auto first = seam_->Write("Software\\Program", "Last run", "2026-11-21 at 14:05");
  EXPECT_TRUE(first.create_code == kStoreSuccess && first.set_code == kStoreSuccess);
  EXPECT_EQ(first.disposition, Disposition::kCreated);
  EXPECT_EQ(seam_->Write("SOFTWARE\\program", "LAST RUN", "later").disposition, Disposition::kOpened);
  EXPECT_TRUE(seam_->HasKey("software\\PROGRAM"));
  EXPECT_EQ(seam_->Read("Software\\Program", "Last run").value, "later");
  EXPECT_EQ(seam_->Read("Software\\Program", "first run").code, kStoreNotFound);
  EXPECT_FALSE(seam_->Read("Software\\Program", "first run").has_value);
}

TEST_P(SettingsStoreContract, AnyTextComesBackAsItWas) {
  for (const std::string text :
       {"", " blanks ", "a=b", "[key]", "line\r\nline\n", "C:\\new\\text\\", "Größe €", "a]"}) {
    ASSERT_EQ(seam_->Write("Key\\" + text, "name=" + text, text).set_code, kStoreSuccess);
    ASSERT_EQ(seam_->Write("Key\\" + text, "second", "x").set_code, kStoreSuccess);
    const auto read = seam_->Read("Key\\" + text, "name=" + text);
    EXPECT_TRUE(read.code == kStoreSuccess && read.has_value) << text;
    EXPECT_EQ(read.value, text);
  }
}

TEST_P(SettingsStoreContract, MessagesAreShortAndUnknownNumbersHaveNone) {
  for (int code = 0; code < 2000; ++code) {
    const std::string text = seam_->Message(code);
    EXPECT_LE(text.size(), 100u) << code;
    EXPECT_FALSE(text.ends_with('\n') || text.ends_with('\r') || text.ends_with(' ')) << code;
  }
  for (const int code : {kStoreSuccess, kStoreNotFound, kStoreAccessDenied})
    EXPECT_NE(seam_->Message(code), "");
  EXPECT_EQ(seam_->Message(987'654'321), "");
}

TEST_P(ClockContract, ItIsLaterThan2020AndLocalTimeIsUtcAndAFewWholeMinutes) {
  EXPECT_GT(seam_->Now().seconds, 1'600'000'000);
  for (const std::int64_t seconds : {-1'000'000'000LL, 0LL, 951'782'400LL, 1'700'000'000LL}) {
    const CalendarTime local = seam_->ToLocal({seconds, 0});
    std::int64_t minutes = -12 * 60;
    while (minutes <= 14 * 60 && ToUtc({seconds + minutes * 60, 0}) != local) ++minutes;
    EXPECT_LE(minutes, 14 * 60) << seconds;
  }
}

TEST_P(ClockContract, ASleepTakesItsTimeOfAClockThatOnlyRunsForward) {
  const auto begun = seam_->Monotonic();
  seam_->Sleep(std::chrono::milliseconds{40});
  EXPECT_GE(seam_->Monotonic() - begun, std::chrono::milliseconds{20})
      << "a clock may tick 60 times a second";
}

TEST_P(ShellContract, ItTellsWhoRunsTheProgramAndWhereThingsAreAndKeepsAwakeOrSaysNothing) {
  EXPECT_FALSE(seam_->UserName().empty() || seam_->ComputerName().empty() || seam_->ProcessNumber() == 0);
  for (const std::string& folder : {seam_->ApplicationDataFolder(), seam_->ProgramFolder()})
    EXPECT_TRUE(folder.starts_with('/') || folder.find(":\\") == 1) << folder;
  EXPECT_TRUE(seam_->KeepAwake() && seam_->KeepAwake());
}

TEST_P(LocaleContract, EveryFormatSaysSomething) {
  const CalendarTime time{2026, 11, 21, 14, 5, 9, 325};
  EXPECT_EQ(seam_->Language().size(), 2u);
  EXPECT_FALSE(seam_->DecimalSeparator().empty());
  EXPECT_NE(seam_->DecimalSeparator(), seam_->ThousandsSeparator());
  EXPECT_NE(seam_->ShortDate(time).find("21"), std::string::npos);
  EXPECT_NE(seam_->TimeOfDay(time).find("05"), std::string::npos);
}

}  // namespace platform::contract
