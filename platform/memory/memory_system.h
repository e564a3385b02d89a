#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/settings_store.h"
#include "platform/shell.h"

/// The small seams in memory: a clock that a test drives, a fixed locale, a settings store and a shell that
/// record.
namespace platform::memory {

/// Stands still until it is moved or slept on. Its local calendar is UTC plus `offset_minutes`.
class MemoryClock : public Clock {
 public:
  FileTime Now() override { return now_; }
  CalendarTime ToLocal(FileTime time) override;
  std::chrono::milliseconds Monotonic() override { return run_; }
  void Sleep(std::chrono::milliseconds duration) override;

  void Set(FileTime now) { now_ = now; }
  void Advance(std::chrono::milliseconds duration);
  const std::vector<std::chrono::milliseconds>& sleeps() const { return sleeps_; }

  int offset_minutes = 0;

 private:
  FileTime now_{1'700'000'000, 0};
  std::chrono::milliseconds run_{0};
  std::vector<std::chrono::milliseconds> sleeps_;
};

/// English with "," and "."; each answer can be changed. Dates are 2026-11-21, times 14:05:09.
class MemoryLocale : public Locale {
 public:
  std::string Language() override { return language; }
  std::string ThousandsSeparator() override { return thousands; }
  std::vector<int> DigitGroups() override { return {3}; }
  std::string DecimalSeparator() override { return decimal; }
  std::string ShortDate(const CalendarTime& time) override;
  std::string TimeOfDay(const CalendarTime& time) override;

  std::string language = "en";
  std::string thousands = ",";
  std::string decimal = ".";
};

/// Codes given to FailWith() answer every later call; Message() words 0, 2 and 5 as Windows does.
class MemorySettingsStore : public SettingsStore {
 public:
  WriteResult Write(const std::string& key, const std::string& name, const std::string& value) override;
  bool HasKey(const std::string& key) override;
  ReadResult Read(const std::string& key, const std::string& name) override;
  std::string Message(int code) override;

  void FailWith(int create_code, int set_code, int read_code);

 private:
  std::map<std::string, std::map<std::string, std::string>> keys_;
  int create_code_ = 0;
  int set_code_ = 0;
  int read_code_ = 0;
};

/// Runs nothing and remembers what it was asked.
class MemoryShell : public Shell {
 public:
  std::string ApplicationDataFolder() override { return application_data; }
  std::string UserName() override { return "user"; }
  std::string ComputerName() override { return "computer"; }
  std::uint64_t ProcessNumber() override { return 1; }
  std::string ProgramFolder() override { return program; }
  Status ScheduleShutDown(const std::string& comment) override;
  Status CallOffShutDown() override;
  std::unique_ptr<AwakeGuard> KeepAwake() override;
  void EnterRootOfCurrentDrive() override { entered_root = true; }

  std::string application_data = "/home/user/.config";
  std::string program = "/opt/program";
  std::vector<std::string> shut_downs;  ///< the comment of each that was scheduled, and "called off"
  int awake = 0;                        ///< guards that live now
  bool entered_root = false;
};

}  // namespace platform::memory
