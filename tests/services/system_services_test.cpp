#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_system.h"
#include "services/date_pr2.h"
#include "services/disk_proc.h"
#include "services/registry3.h"

namespace {

using platform::memory::Call;

TEST(DiskProc, WordsSizesByTheirUnit) {
  std::string words;
  for (const double bytes : {0.0, 1023.0, 1024.0, 1048575.0, 1048576.0, 1073741823.0, 1073741824.0, 5.5e12}) {
    words += DiskProc::FormatDiskSize(bytes, 0, {}) + "; ";
  }
  EXPECT_EQ(words,
            "0 bytes; 1,023 bytes; 1.00 Kb; 1,024.00 Kb; 1.00 Mb; 1,024.00 Mb; 1.00 Gb; 5,122.27 Gb; ");
  EXPECT_EQ(DiskProc::FormatDiskSize(0, -1, {}) + DiskProc::FormatDiskSize(1, 1, {}), "0 Bytes1 Bytes");
}

TEST(DiskProc, TellsTheSpaceOrNothing) {
  platform::memory::MemoryFileSystem files;
  files.SetSpace(5'000'000'000, 6'000'000'000);
  double free_bytes = 0;
  double total_bytes = 0;
  EXPECT_EQ(DiskProc::GetDiskSpace(files, "/", free_bytes, total_bytes), 0);
  EXPECT_TRUE(free_bytes == 5e9 && total_bytes == 6e9);
  EXPECT_EQ(DiskProc::FreeSpaceText(files, "/", {}), "4.66 Gb");
  files.Fail(Call::kSpace, "", {});
  EXPECT_EQ(DiskProc::FreeSpaceText(files, "/", {}), "");
}

TEST(DiskProc, ProbesAFolderAndLeavesNothingBehind) {
  platform::memory::MemoryFileSystem files;
  const std::string probe = "/t/klasdjfdskjfkjkwjkweoewiroew.txt";
  files.AddFile(probe, "left over");
  std::string error = "old";
  EXPECT_FALSE(DiskProc::IsWriteProtected(files, "/t", error));
  EXPECT_EQ(error, "");
  EXPECT_FALSE(files.Exists(probe));
  files.Fail(Call::kRemoveFile, probe, {platform::ErrorKind::kOther, 5, "stays"}, 1);
  EXPECT_TRUE(DiskProc::IsWriteProtected(files, "/t", error));
  EXPECT_EQ(error, "stays");
  files.SetReadOnly("/t");
  EXPECT_TRUE(DiskProc::IsWriteProtected(files, "/t/", error));
}

class Registry : public testing::Test {
 protected:
  std::string Exchange() { return Registry3::ExchangePreviousRun(hive, clock, locale, "k", "n"); }

  platform::memory::MemorySettingsStore store;
  platform::memory::MemoryClock clock;
  platform::memory::MemoryLocale locale;
  Registry3::Hive hive{store, [this](int code) { return store.Message(code); }};
};

TEST_F(Registry, WordsTheOutcomeOfReading) {
  const struct {
    const char *key, *name;
    int code;
    const char *stored, *message, *status;
  } cases[] = {
      {"", "n", 0, "", "", "1 Key not found or is empty."},
      {"other", "", 0, "", "", "1 Key not found or is empty."},
      {"k", "", 0, "", "", "2 Name not specified."},
      {"k", "n", 2, "", "Datei nicht gefunden.", "3 Name not found."},
      {"k", "n", 0, "", "The operation completed successfully.", "3 Name not found."},
      {"k", "n", 0, "v", "The system cannot find the file specified.", "3 Name not found."},
      {"k", "n", 0, "v", "The operation completed successfully.", "0 OK"},
      {"k", "n", 0, "v", "Vorgang erfolgreich.", "0 OK probably"},
      {"k", "n", 5, "", "Access is denied.", "4 \r\nAccess is denied."},
  };
  for (const auto& c : cases) {
    store.Write("k", "n", c.stored);
    store.FailWith(0, 0, c.code);
    std::string value = "old";
    hive.text = [&](int) { return c.message; };
    EXPECT_EQ(Registry3::RegistryReadString(hive, c.key, c.name, value), c.status);
    EXPECT_EQ(value, c.stored);
  }
}

TEST_F(Registry, WordsTheOutcomeOfWriting) {
  const std::string done = "\r\nThe operation completed successfully.  ";
  EXPECT_EQ(Registry3::RegistryWriteString(hive, "k", "n", "v"), done + "0 New key created.");
  EXPECT_EQ(Registry3::RegistryWriteString(hive, "k", "n", "v"), done + "0 Key already exists.");
  store.FailWith(5, 0, 0);
  EXPECT_EQ(Registry3::RegistryWriteString(hive, "k", "n", "v"),
            "\r\n" + store.Message(5) + "  Unable to create (or find) key. 5");
}

TEST_F(Registry, ExchangesThePreviousRunForNow) {
  EXPECT_EQ(Exchange(), "");
  EXPECT_EQ(Exchange(), "2023-11-14 at 22:13:20");
  store.Write("k", "n", "äöü456789");
  EXPECT_EQ(Exchange(), "") << "nine characters";
  store.Write("k", "n", "1234567890");
  EXPECT_EQ(Exchange(), "1234567890");
  EXPECT_EQ(DatePr2::TimeStamp(clock, locale), "2023-11-14 22.13.20");
}

TEST(ModifiedSince, ListsLongerAndLongerPeriods) {
  const text::ProgramTexts texts("353 any\n356 week\n357 month\n358 2 months");
  platform::memory::MemoryClock clock;
  std::string list;
  platform::FileTime last = clock.Now();
  for (int i = 0; i < DatePr2::ModifiedSinceCount(); ++i) {
    list += DatePr2::ModifiedSinceText(i, texts) + ';';
    const auto limit = DatePr2::ModifiedSinceLimit(i, clock);
    EXPECT_TRUE(i == 0 ? !limit : *limit < last) << i;
    last = limit.value_or(last);
  }
  EXPECT_EQ(list, "any;week;month;2 months;3 months;4 months;6 months;9 months;12 months;24 months;");
  EXPECT_FALSE(DatePr2::ModifiedSinceLimit(-1, clock));
}

/// Two hours ahead of UTC from 2024-03-31 01:00 UTC on, one hour before.
class SummerClock : public platform::memory::MemoryClock {
 public:
  platform::CalendarTime ToLocal(platform::FileTime time) override {
    time.seconds += time.seconds < 1'711'846'800 ? 3600 : 7200;
    return platform::ToUtc(time);
  }
};

TEST(ModifiedSince, CountsBackInTheLocalCalendar) {
  const struct {
    std::int64_t now;  ///< 2024-03-31 12:00:00 local, 2024-02-29 00:30 local, 2024-05-01 00:30 local
    int index;
    std::int64_t expected;
  } cases[] = {
      {1'711'879'200, 1, 1'711'278'000},  // a week: 2024-03-24 12:00 local, winter time
      {1'711'879'200, 2, 1'709'204'400},  // a month: 2024-02-29 12:00
      {1'709'163'000, 8, 1'677'540'600},  // 12 months before a leap day: 2023-02-28 00:30
      {1'714'516'200, 2, 1'711'924'200},  // a month: 2024-04-01 00:30 local, still March in UTC
      {1'714'516'200, 3, 1'709'249'400},  // two months: 2024-03-01 00:30 local, winter time
  };
  for (const auto& c : cases) {
    SummerClock clock;
    clock.Set({c.now, 7});
    EXPECT_EQ(DatePr2::ModifiedSinceLimit(c.index, clock), (platform::FileTime{c.expected, 7})) << c.index;
  }
}

}  // namespace
